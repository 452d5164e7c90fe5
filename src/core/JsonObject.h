#pragma once

#include <QHashFunctions>
#include <algorithm>
#include <bit>
#include <functional>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace kestrio {

namespace detail {

// Keys are not const, so that members are moved and not copied when the list grows.
template <typename Key, typename T, typename Allocator>
using JsonMembers =
    std::vector<std::pair<Key, T>, typename std::allocator_traits<Allocator>::template rebind_alloc<
                                       std::pair<Key, T>>>;

}  // namespace detail

/// The members of a JSON object in the order in which their keys were first set, each key once; in
/// the form that nlohmann::basic_json wants for its objects. Small objects are searched from the
/// front, larger ones through a hash table, so a document takes time in proportion to its length
/// whatever its keys are. Iterators and references hold until a member is added or removed.
template <typename Key, typename T, typename /*IgnoredLess*/ = std::less<Key>,
          typename Allocator = std::allocator<std::pair<const Key, T>>>
class JsonObject : private detail::JsonMembers<Key, T, Allocator> {
    using Members = detail::JsonMembers<Key, T, Allocator>;

  public:
    using key_type = Key;
    using mapped_type = T;
    using key_compare = std::equal_to<>;
    using typename Members::allocator_type;
    using typename Members::const_iterator;
    using typename Members::const_reference;
    using typename Members::difference_type;
    using typename Members::iterator;
    using typename Members::reference;
    using typename Members::size_type;
    using typename Members::value_type;

    using Members::begin;
    using Members::capacity;
    using Members::cbegin;
    using Members::cend;
    using Members::empty;
    using Members::end;
    using Members::max_size;
    using Members::size;

    JsonObject() = default;

    template <typename Iterator>
    JsonObject(Iterator first, Iterator last) {
        insert(first, last);
    }

    /// Keeps the member of this key where there is one; the second value says if it is new.
    template <typename AnyKey>
    std::pair<iterator, bool> emplace(AnyKey&& key, T&& value) {
        if (const auto old = find(key); old != end()) return {old, false};
        Members::emplace_back(std::forward<AnyKey>(key), std::move(value));
        indexLast();
        return {std::prev(end()), true};
    }

    std::pair<iterator, bool> insert(const value_type& member) {
        return emplace(member.first, T(member.second));
    }

    template <typename Iterator>
    void insert(Iterator first, Iterator last) {
        for (; first != last; ++first)
            insert(*first);
    }

    template <typename AnyKey>
    T& operator[](AnyKey&& key) {
        return emplace(std::forward<AnyKey>(key), T{}).first->second;
    }

    iterator find(std::string_view key) {
        return begin() + static_cast<difference_type>(positionOf(key));
    }
    const_iterator find(std::string_view key) const {
        return begin() + static_cast<difference_type>(positionOf(key));
    }
    size_type count(std::string_view key) const { return positionOf(key) == size() ? 0 : 1; }

    iterator erase(iterator first, iterator last) {
        const auto next = Members::erase(first, last);
        indexAll();
        return next;
    }
    iterator erase(iterator member) { return erase(member, std::next(member)); }
    size_type erase(std::string_view key) {
        const iterator member = find(key);
        if (member == end()) return 0;
        erase(member);
        return 1;
    }

    void clear() {
        Members::clear();
        slots_.clear();
    }

    friend bool operator==(const JsonObject& a, const JsonObject& b) {
        return a.members() == b.members();
    }
    friend bool operator<(const JsonObject& a, const JsonObject& b) {
        return a.members() < b.members();
    }

  private:
    /// Up to here comparing beats hashing.
    static constexpr size_type mostWithoutIndex = 16;

    const Members& members() const { return *this; }

    // Seeded for each process, so that no document can be made to collide on purpose.
    static size_type hash(std::string_view key) {
        return qHashBits(key.data(), key.size(), static_cast<size_t>(QHashSeed::globalSeed()));
    }

    /// size() for a key that is absent.
    size_type positionOf(std::string_view key) const {
        if (slots_.empty()) {
            const auto found = std::find_if(begin(), end(), [key](const value_type& each) {
                return std::string_view(each.first) == key;
            });
            return static_cast<size_type>(found - begin());
        }
        for (size_type slot = hash(key) & mask(); slots_[slot] != 0; slot = (slot + 1) & mask()) {
            const size_type position = slots_[slot] - 1;
            if (std::string_view(members()[position].first) == key) return position;
        }
        return size();
    }

    void indexLast() {
        if (size() <= mostWithoutIndex) return;
        if (slots_.size() < 2 * size()) {
            indexAll();
        } else {
            index(size() - 1);
        }
    }

    void indexAll() {
        slots_.clear();
        if (size() <= mostWithoutIndex) return;
        slots_.resize(4 * std::bit_ceil(size()));
        for (size_type position = 0; position < size(); ++position)
            index(position);
    }

    void index(size_type position) {
        size_type slot = hash(members()[position].first) & mask();
        while (slots_[slot] != 0)
            slot = (slot + 1) & mask();
        slots_[slot] = position + 1;
    }

    size_type mask() const { return slots_.size() - 1; }

    /// Open addressing over a power of two of slots, at most half of them taken: the position of a
    /// member plus one, or 0. Empty while the object is small.
    std::vector<size_type> slots_;
};

}  // namespace kestrio
