#pragma once

#include "app/capture/CaptureRequest.h"
#include "core/Json.h"

namespace kestrio {

inline constexpr EnumTable<CaptureKind, 3> captureKinds = {{
    {CaptureKind::region, "region"},
    {CaptureKind::window, "window"},
    {CaptureKind::display, "display"},
}};
constexpr const auto& enumTable(CaptureKind) {
    return captureKinds;
}

/// What other programs may ask for in advance.
inline constexpr EnumTable<CaptureAction, 4> requestableActions = {{
    {CaptureAction::edit, "edit"},
    {CaptureAction::copy, "copy"},
    {CaptureAction::save, "save"},
    {CaptureAction::pin, "pin"},
}};
constexpr const auto& enumTable(CaptureAction) {
    return requestableActions;
}

/// The longest countdown, in seconds.
inline constexpr int longestDelay = 3600;
bool isDelay(int seconds);

/// Captures; the fields are those of CaptureRequest.
struct CaptureVerb {
    CaptureKind kind = CaptureKind::region;
    int delay = 0;
    std::optional<CaptureAction> action;
    QString output;  ///< absolute
    /// Nobody reads what the asking program writes, so failures are reported on the desktop too.
    bool isUnattended = false;

    CaptureRequest captureRequest() const { return {kind, delay, action, output}; }

    static constexpr auto jsonFields() {
        using V = CaptureVerb;
        return std::tuple(missableField("kind", &V::kind), missableField("delay", &V::delay),
                          missableField("action", &V::action), missableField("output", &V::output),
                          missableField("isUnattended", &V::isUnattended));
    }
};

/// Why it makes no sense, for users; empty where nothing is wrong. Looks at no disk, so that
/// faultOfOutput() may still object.
QString faultOf(const CaptureVerb& verb);

}  // namespace kestrio
