#pragma once

#include <utility>

/// Declares a published property of a QObject: member, getter, change signal and a setter that
/// signals only on change. Only the class itself (and its heirs) may set it.
///
///     class TimerViewModel : public QObject {
///         Q_OBJECT
///         PUBLISHED(bool, isRunning, false)
///         ...
///
/// The block stands first in the class, after Q_OBJECT. Types that contain a comma need an alias.
#define PUBLISHED(Type, name, initial)                   \
  private:                                               \
    Q_PROPERTY(Type name READ name NOTIFY name##Changed) \
    KESTRIO_PUBLISHED_MEMBER(Type, name, initial, protected)

/// The same with write access for QML and for everybody else, through set_<name>().
#define PUBLISHED_WRITABLE(Type, name, initial)                           \
  private:                                                                \
    Q_PROPERTY(Type name READ name WRITE set_##name NOTIFY name##Changed) \
    KESTRIO_PUBLISHED_MEMBER(Type, name, initial, public)

#define KESTRIO_PUBLISHED_MEMBER(Type, name, initial, setterAccess)    \
  public:                                                              \
    const Type& name() const {                                         \
        return name##_;                                                \
    }                                                                  \
    Q_SIGNAL void name##Changed();                                     \
                                                                       \
    setterAccess:                                                      \
    void set_##name(Type value) {                                      \
        if (::kestrio::assignIfDifferent(name##_, std::move(value))) { \
            Q_EMIT name##Changed();                                    \
        }                                                              \
    }                                                                  \
                                                                       \
  private:                                                             \
    Type name##_ = initial;

namespace kestrio {

/// Assigns and says whether the value changed; types without equality always count as changed.
template <typename T>
bool assignIfDifferent(T& member, T value) {
    if constexpr (requires { member == value; }) {
        if (member == value) return false;
    }
    member = std::move(value);
    return true;
}

}  // namespace kestrio
