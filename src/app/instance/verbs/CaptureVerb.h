#pragma once

#include "app/capture/CaptureRequest.h"
#include "core/Json.h"

#include <vector>

namespace kestrio {

inline constexpr EnumTable<CaptureKind, 4> captureKinds = {{
    {CaptureKind::region, "region"},
    {CaptureKind::window, "window"},
    {CaptureKind::display, "display"},
    {CaptureKind::scrolling, "scrolling"},
}};
constexpr const auto& enumTable(CaptureKind) {
    return captureKinds;
}

/// What other programs may ask for in advance.
inline constexpr EnumTable<CaptureAction, 5> requestableActions = {{
    {CaptureAction::edit, "edit"},
    {CaptureAction::copy, "copy"},
    {CaptureAction::save, "save"},
    {CaptureAction::pin, "pin"},
    {CaptureAction::ocr, "ocr"},
}};
constexpr const auto& enumTable(CaptureAction) {
    return requestableActions;
}

/// The longest countdown, in seconds.
inline constexpr int longestDelay = 3600;
bool isDelay(int seconds);

/// Left, top, width and height of a text such as "10,20,800,600"; empty for any other text.
std::vector<double> regionFrom(const QString& text);

/// Captures; the fields are those of CaptureRequest.
struct CaptureVerb {
    CaptureKind kind = CaptureKind::region;
    int delay = 0;
    std::optional<CaptureAction> action;
    QString output;  ///< absolute
    /// Scrolls by itself; as the settings have it where false. Scrolling captures only.
    bool isAutomatic = false;
    /// Left, top, width and height in points of the desktop; the user chooses where empty.
    /// Scrolling captures only.
    std::vector<double> region;
    /// Nobody reads what the asking program writes, so failures are reported on the desktop too.
    bool isUnattended = false;

    CaptureRequest captureRequest() const;

    static constexpr auto jsonFields() {
        using V = CaptureVerb;
        return std::tuple(missableField("kind", &V::kind), missableField("delay", &V::delay),
                          missableField("action", &V::action), missableField("output", &V::output),
                          missableField("isAutomatic", &V::isAutomatic),
                          missableField("region", &V::region),
                          missableField("isUnattended", &V::isUnattended));
    }
};

/// Why it makes no sense, for users; empty where nothing is wrong. Looks at no disk, so that
/// faultOfOutput() may still object.
QString faultOf(const CaptureVerb& verb);

}  // namespace kestrio
