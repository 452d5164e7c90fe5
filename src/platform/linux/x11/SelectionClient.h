#pragma once

#include "platform/linux/x11/XcbConnection.h"

#include <QDeadlineTimer>
#include <chrono>
#include <functional>
#include <optional>

namespace kestrio {

/// How long an owner of a selection may stay silent at each step.
constexpr std::chrono::milliseconds selectionPatience(1000);

/// Asks the program that owns a selection, such as the clipboard, over a connection of its own to
/// the X server. For one read, in a thread that may wait. Everything throws PasteboardError and
/// Cancelled.
class SelectionClient {
  public:
    /// `selection` is its name; `isStopped` is asked now and then while this waits.
    SelectionClient(const char* selection, std::function<bool()> isStopped);

    /// Atoms of these names, in their order.
    std::vector<xcb_atom_t> atoms(const std::vector<const char*>& names) const;

    bool hasOwner() const;
    /// The formats that the owner offers.
    std::vector<xcb_atom_t> targets();
    /// The contents in one format; nothing where the owner refuses that. `patience` is for the
    /// first answer, which may need encoding; parts of large contents may take selectionPatience
    /// each.
    std::optional<QByteArray> fetch(xcb_atom_t target,
                                    std::chrono::milliseconds patience = selectionPatience);

  private:
    struct Part {
        xcb_atom_t type = XCB_ATOM_NONE;
        QByteArray bytes;
    };

    XcbReply<xcb_generic_event_t> nextEvent(const QDeadlineTimer& step);
    /// False where the owner refuses.
    bool awaitAnswer(xcb_atom_t target, const QDeadlineTimer& step);
    void awaitPart();
    QByteArray remainingParts();
    /// Reads and deletes the property through which the owner answers. `before` bytes have come.
    Part takePart(qsizetype before);

    XcbConnection connection_;
    std::function<bool()> isStopped_;
    QDeadlineTimer end_;
    xcb_connection_t* handle_ = nullptr;
    xcb_window_t window_ = XCB_WINDOW_NONE;
    xcb_atom_t selection_ = XCB_ATOM_NONE;
    xcb_atom_t property_ = XCB_ATOM_NONE;
    xcb_atom_t targetsAtom_ = XCB_ATOM_NONE;
    xcb_atom_t partsAtom_ = XCB_ATOM_NONE;
};

}  // namespace kestrio
