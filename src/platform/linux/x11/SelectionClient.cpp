#include "platform/linux/x11/SelectionClient.h"

#include "core/Cancelled.h"
#include "platform/PasteboardError.h"

#include <poll.h>
#include <cstring>

namespace kestrio {

namespace {

// For everything, however steadily it arrives.
constexpr std::chrono::milliseconds longestRead(10000);
constexpr std::chrono::milliseconds stopPoll(25);
constexpr qsizetype mostBytes = qsizetype{512} << 20;
constexpr std::uint32_t unitBytes = 4;
constexpr std::uint32_t unitsAtOnce = std::uint32_t{1} << 20;

// Without the bit that marks what another program has sent.
int kindOf(const xcb_generic_event_t& event) {
    constexpr int sent = 0x80;
    return event.response_type & ~sent;
}

PasteboardError failure(PasteboardError::Case which) {
    return PasteboardError(which);
}

}  // namespace

SelectionClient::SelectionClient(const char* selection, std::function<bool()> isStopped)
    : isStopped_(std::move(isStopped)), end_(longestRead) {
    if (!connection_.open()) throw failure(PasteboardError::Case::noConnection);
    handle_ = connection_.handle();
    const auto known = atoms({selection, "KESTRIO_SELECTION", "TARGETS", "INCR"});
    selection_ = known[0];
    property_ = known[1];
    targetsAtom_ = known[2];
    partsAtom_ = known[3];
    window_ = xcb_generate_id(handle_);
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(handle_, XCB_COPY_FROM_PARENT, window_, connection_.screen().root, -1, -1, 1,
                      1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                      &events);
}

std::vector<xcb_atom_t> SelectionClient::atoms(const std::vector<const char*>& names) const {
    std::vector<xcb_intern_atom_cookie_t> cookies;
    cookies.reserve(names.size());
    for (const char* name : names)
        cookies.push_back(
            xcb_intern_atom(handle_, false, static_cast<std::uint16_t>(std::strlen(name)), name));
    std::vector<xcb_atom_t> found;
    for (const auto cookie : cookies) {
        const XcbReply<xcb_intern_atom_reply_t> reply(
            xcb_intern_atom_reply(handle_, cookie, nullptr));
        found.push_back(reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE});
    }
    return found;
}

bool SelectionClient::hasOwner() const {
    const XcbReply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        handle_, xcb_get_selection_owner(handle_, selection_), nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

std::vector<xcb_atom_t> SelectionClient::targets() {
    const QByteArray bytes = fetch(targetsAtom_).value_or(QByteArray());
    std::vector<xcb_atom_t> found(static_cast<std::size_t>(bytes.size()) / sizeof(xcb_atom_t));
    if (!found.empty()) {
        std::memcpy(found.data(), bytes.constData(), found.size() * sizeof(xcb_atom_t));
    }
    return found;
}

std::optional<QByteArray> SelectionClient::fetch(xcb_atom_t target,
                                                 std::chrono::milliseconds patience) {
    xcb_delete_property(handle_, window_, property_);
    xcb_convert_selection(handle_, window_, selection_, target, property_, XCB_CURRENT_TIME);
    xcb_flush(handle_);
    if (!awaitAnswer(target, QDeadlineTimer(patience))) return std::nullopt;
    Part answer = takePart(0);
    if (answer.type != partsAtom_) return std::move(answer.bytes);
    return remainingParts();
}

QByteArray SelectionClient::remainingParts() {
    QByteArray all;
    for (;;) {
        awaitPart();
        const Part part = takePart(all.size());
        // What comes in parts ends with an empty one.
        if (part.bytes.isEmpty()) return all;
        all += part.bytes;
    }
}

XcbReply<xcb_generic_event_t> SelectionClient::nextEvent(const QDeadlineTimer& step) {
    for (;;) {
        if (isStopped_()) throw Cancelled();
        if (XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(handle_)}) return event;
        if (xcb_connection_has_error(handle_)) {
            throw failure(PasteboardError::Case::noConnection);
        }
        if (step.hasExpired() || end_.hasExpired()) {
            throw failure(PasteboardError::Case::notAnswering);
        }
        pollfd server{xcb_get_file_descriptor(handle_), POLLIN, 0};
        ::poll(&server, 1, static_cast<int>(stopPoll.count()));
    }
}

bool SelectionClient::awaitAnswer(xcb_atom_t target, const QDeadlineTimer& step) {
    for (;;) {
        const auto event = nextEvent(step);
        if (kindOf(*event) != XCB_SELECTION_NOTIFY) continue;
        const auto* answer = reinterpret_cast<const xcb_selection_notify_event_t*>(event.get());
        if (answer->selection == selection_ && answer->target == target) {
            return answer->property != XCB_ATOM_NONE;
        }
    }
}

void SelectionClient::awaitPart() {
    const QDeadlineTimer step(selectionPatience);
    for (;;) {
        const auto event = nextEvent(step);
        if (kindOf(*event) != XCB_PROPERTY_NOTIFY) continue;
        const auto* change = reinterpret_cast<const xcb_property_notify_event_t*>(event.get());
        if (change->atom == property_ && change->state == XCB_PROPERTY_NEW_VALUE) return;
    }
}

SelectionClient::Part SelectionClient::takePart(qsizetype before) {
    Part part;
    std::uint32_t left = 0;
    do {
        const auto offset = static_cast<std::uint32_t>(part.bytes.size()) / unitBytes;
        const XcbReply<xcb_get_property_reply_t> reply(
            xcb_get_property_reply(handle_,
                                   xcb_get_property(handle_, false, window_, property_,
                                                    XCB_GET_PROPERTY_TYPE_ANY, offset, unitsAtOnce),
                                   nullptr));
        if (!reply) throw failure(PasteboardError::Case::noConnection);
        const int length = xcb_get_property_value_length(reply.get());
        left = length > 0 ? reply->bytes_after : 0;
        part.type = reply->type;
        if (before + part.bytes.size() + length + qsizetype{left} > mostBytes) {
            throw failure(PasteboardError::Case::tooLarge);
        }
        part.bytes.append(static_cast<const char*>(xcb_get_property_value(reply.get())), length);
    } while (left > 0);
    xcb_delete_property(handle_, window_, property_);
    xcb_flush(handle_);
    return part;
}

}  // namespace kestrio
