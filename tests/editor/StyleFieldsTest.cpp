#include "EditorFixture.h"

#include "editor/views/StyleFields.h"

#include <QMetaProperty>

namespace kestrio {
namespace {

struct StyleFieldsTest : EditorFixture {
    StyleFieldsTest() : fields(*editor) {
        editor->loadCapture({picture()});
        for (int i = 0; i < fields.metaObject()->propertyCount(); ++i) {
            const QMetaProperty property = fields.metaObject()->property(i);
            const auto* field = property.read(&fields).value<StyleField*>();
            if (!field) continue;
            QObject::connect(field, &StyleField::valueChanged, &fields,
                             [this, name = property.name()] { changed << QLatin1String(name); });
        }
    }

    StyleFields fields;
    QStringList changed;
};

// Bindings of a window wait on these signals while a slider is dragged.
TEST_F(StyleFieldsTest, SignalWhatChangedAndNothingElse) {
    fields.padding()->set(31);
    fields.padding()->set(31);
    fields.shadow()->set(!fields.shadow()->value());
    fields.watermarkScale()->set(WatermarkSettings::scaleRange.greatest);
    EXPECT_EQ(changed.join(u' ').toStdString(), "padding shadow watermarkScale");
    fields.backdropType()->set(QStringLiteral("none"));
    changed.clear();
    fields.solidColor()->set(QColor(12, 34, 56));
    changed.sort();
    EXPECT_EQ(changed, QStringList({QStringLiteral("backdropType"), QStringLiteral("solidColor")}));
    EXPECT_EQ(fields.backdropType()->value(), QStringLiteral("solid"))
        << "a colour brings its kind";
}

TEST_F(StyleFieldsTest, FollowTheDocumentThroughUndo) {
    const QString before = fields.frame()->value();
    fields.frame()->choose(QStringLiteral("safari"));
    fields.customGradient()->choose({QColor(Qt::red), QStringLiteral("#00ff00")});
    EXPECT_EQ(editor->styleModel().frameStyle(), FrameStyle::safari);
    EXPECT_EQ(fields.customGradient()->value().value(1).value<QColor>(), QColor(0, 255, 0));
    editor->undo();
    EXPECT_TRUE(fields.customGradient()->value().isEmpty());
    EXPECT_EQ(fields.frame()->value(), QStringLiteral("safari"));
    editor->undo();
    EXPECT_EQ(fields.frame()->value(), before);
}

TEST_F(StyleFieldsTest, ClampNumbersAndLeaveWhatDoesNotExist) {
    for (QObject* each : fields.children()) {
        auto* number = qobject_cast<StyleNumber*>(each);
        if (!number) continue;
        number->set(1e9);
        EXPECT_EQ(number->value(), number->greatest());
        number->set(-1e9);
        EXPECT_EQ(number->value(), number->least());
        number->set(std::nan(""));
        EXPECT_EQ(number->value(), number->least());
    }
    const EditorStyleSettings style = editor->style();
    for (StyleText* choice : {fields.backdropType(), fields.pattern(), fields.overlayPosition(),
                              fields.frame(), fields.light(), fields.effect()})
        choice->set(QStringLiteral("nonsense"));
    fields.hasImage()->set(true);
    EXPECT_FALSE(fields.hasImage()->value()) << "only a picture makes it so";
    EXPECT_EQ(editor->style(), style);
}

}  // namespace
}  // namespace kestrio
