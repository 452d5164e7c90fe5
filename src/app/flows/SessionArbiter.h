#pragma once

#include "capture/CaptureError.h"
#include "core/Published.h"
#include "core/Task.h"

#include <QPointer>
#include <memory>

namespace kestrio {

class SessionArbiter;

/// The right of one flow to the screen; ends with end() or with the object.
class ScreenTurn {
  public:
    explicit ScreenTurn(SessionArbiter& arbiter) : arbiter_(&arbiter) {}
    ~ScreenTurn() { end(); }
    ScreenTurn(const ScreenTurn&) = delete;
    ScreenTurn& operator=(const ScreenTurn&) = delete;

    /// Whether the flow is waiting for its user, who may take long.
    void setUserChoosing(bool isChoosing);
    /// Lets the next flow have the screen. Nothing happens the second time.
    void end();

  private:
    QPointer<SessionArbiter> arbiter_;  ///< null once the turn has ended
};

/// Decides which flows go on beside each other. What they exclude each other from is the screen:
/// the overlay on which the user chooses, the pointer and the keys that it takes, and the moment in
/// which the picture is read.
///
/// - A still capture has the screen from its start until its picture is taken care of. So there is
///   one at a time: menus and hotkeys start none meanwhile, and a capture that another program asks
///   for waits, unless it would have to wait for a user.
/// - A flow that goes on by itself once the user has chosen, as a recording does, has the screen
///   for the choice alone. Still captures and it then go on side by side.
/// - Opening pictures that exist already, and counting down, need no turn.
///
/// Main thread.
class SessionArbiter : public QObject {
    Q_OBJECT
    PUBLISHED(bool, isScreenTaken, false)
    PUBLISHED(bool, isUserChoosing, false)

  public:
    /// A turn, once the one before has ended. Throws busy() while a user is choosing, and after two
    /// minutes; a stop throws Cancelled.
    Task<std::shared_ptr<ScreenTurn>> takeScreen(std::stop_token stop);

    /// What a flow fails with that is not given the screen.
    static CaptureError busy();

  private:
    friend class ScreenTurn;
    /// Until something changes, or until `limit` has passed.
    Completion<> nextChange(std::chrono::milliseconds limit, QObject* context,
                            std::stop_token stop);
};

}  // namespace kestrio
