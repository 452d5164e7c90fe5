#pragma once

#include "render/style/EditorStyleSettings.h"

namespace kestrio {

/// A style that the user named and kept.
struct Theme {
    QUuid id;
    QString name;
    BackdropSettings backdrop;
    MockupSettings mockup;
    FrameStyle frameStyle = FrameStyle::none;
    Date createdAt;
    Date updatedAt;

    bool operator==(const Theme&) const = default;

    EditorStyleSettings style() const { return {backdrop, mockup, frameStyle}; }
    /// The same theme with another style, updated now.
    Theme withStyle(const EditorStyleSettings& style) const;

    /// A theme with a new id, dated now.
    static Theme make(const QString& name, const EditorStyleSettings& style);

    static constexpr auto jsonFields() {
        return std::tuple(
            jsonField("id", &Theme::id), jsonField("name", &Theme::name),
            jsonField("backdrop", &Theme::backdrop), jsonField("mockup", &Theme::mockup),
            jsonField("frameStyle", &Theme::frameStyle), jsonField("createdAt", &Theme::createdAt),
            jsonField("updatedAt", &Theme::updatedAt));
    }
};

/// A built-in style; never stored.
struct PresetTheme {
    QString id;
    QString name;  ///< English; views translate it
    BackdropSettings backdrop;
    MockupSettings mockup;
    FrameStyle frameStyle = FrameStyle::none;

    EditorStyleSettings style() const { return {backdrop, mockup, frameStyle}; }

    /// In display order.
    static const std::vector<PresetTheme>& all();
    /// The preset of an exact id, or null.
    static const PresetTheme* find(const QString& id);
};

}  // namespace kestrio
