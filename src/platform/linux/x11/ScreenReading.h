#pragma once

#include "platform/linux/x11/PixelReader.h"

#include <chrono>
#include <vector>

#include <xcb/damage.h>
#include <xcb/xfixes.h>

namespace kestrio {

/// Reads one part of the screen again and again, over a connection of its own, and knows what has
/// changed since it last did. For one thread. Everything throws ScreenStreamError.
class ScreenReading {
  public:
    /// `pixels` is within the root window.
    explicit ScreenReading(QRect pixels);

    struct Picture {
        QImage image;                   ///< Format_RGB32
        std::vector<QRect> dirtyRects;  ///< pixels of the picture, apart from each other
        std::chrono::steady_clock::time_point time;
    };

    /// The part as it is now, which counts as a change nowhere.
    Picture readAll();
    /// The part with all that has changed in it since the last reading, at one moment; nothing is
    /// read, and the picture is null, where nothing has. Afterwards the server reports the next
    /// change.
    Picture readChanges();

    /// Whether the server has reported a change somewhere on the screen since the last
    /// reading.
    bool hasHeardOfChanges();
    /// Becomes readable when the server says something.
    int descriptor() const { return xcb_get_file_descriptor(connection_.handle()); }

  private:
    void watchChanges();
    /// Asks for the changes and makes the server forget them.
    std::vector<QRect> takeChanges();
    Picture read(std::vector<QRect> dirtyRects);

    XcbConnection connection_;
    PixelReader reader_{connection_};
    QRect pixels_;
    xcb_damage_damage_t damage_ = 0;
    xcb_xfixes_region_t area_ = 0;     ///< what is read, as the server's region
    xcb_xfixes_region_t changes_ = 0;  ///< the part of it that takeChanges() fetches
    std::uint8_t damageEvent_ = 0;
    bool hasHeard_ = false;
};

}  // namespace kestrio
