#pragma once

#include "render/style/BackdropSettings.h"
#include "render/style/FrameStyle.h"
#include "render/style/MockupSettings.h"

namespace kestrio {

/// A whole style: backdrop, corners with shadow, and frame.
struct EditorStyleSettings {
    BackdropSettings backdrop;
    MockupSettings mockup;
    FrameStyle frameStyle = FrameStyle::none;

    bool operator==(const EditorStyleSettings&) const = default;

    static constexpr auto jsonFields() {
        return std::tuple(jsonField("backdrop", &EditorStyleSettings::backdrop),
                          jsonField("mockup", &EditorStyleSettings::mockup),
                          jsonField("frameStyle", &EditorStyleSettings::frameStyle));
    }
};

}  // namespace kestrio
