#include "support/AnnotationSamples.h"

#include "annotation/editing/AnnotationViewModel.h"
#include "annotation/editing/HitTest.h"

#include <gtest/gtest.h>

#include <QDir>
#include <random>

namespace kestrio {
namespace {

// Radius 4 throughout, strokes 6 wide. Each row stands at the last point that is hit; a trace
// farther along `away` is not.
TEST(Eraser, TouchesUpToEqualDistance) {
    constexpr double radius = 4;
    struct Row {
        const char* name;
        AnyAnnotation annotation;
        QPointF last;
        QPointF away;
    };
    const CodableColor color;
    const ArrowAnnotation arrow{{}, {0, 0}, {100, 50}, {{50, 90}}, color, 6};
    const MeasurementAnnotation slope{{}, {0, 0}, {80, 60}, color, 6};
    const auto rectangle = [&](FillMode mode) {
        return RectangleAnnotation{{}, {0, 0, 100, 80}, color, 6, mode};
    };
    const auto circle = [&](FillMode mode) {
        return CircleAnnotation{{}, {0, 0}, 50, color, 6, mode};
    };
    const Row rows[] = {
        // Square with the slope (0.8, 0.6), 7 from its middle.
        {"measurement", slope, {40 - 4.2, 30 + 5.6}, {-0.6, 0.8}},
        {"point-like arrow", ArrowAnnotation{{}, {5, 5}, {5, 5}, {}, color, 6}, {9, 5}, {1, 0}},
        {"rectangle outside", rectangle(FillMode::stroke), {104, 40}, {1, 0}},
        {"rectangle inside", rectangle(FillMode::stroke), {7, 40}, {1, 0}},
        {"filled rectangle", rectangle(FillMode::fill), {104, 84}, {1, 1}},
        {"circle inside", circle(FillMode::stroke), {43, 0}, {-1, 0}},
        {"filled circle", circle(FillMode::fill), {0, 54}, {0, 1}},
        {"number", NumberAnnotation{{}, {0, 0}, 1, color, 20, 6}, {-14, 0}, {-1, 0}},
        {"emoji", EmojiAnnotation{{}, {0, 0}, {}, 20, color, 6, 0}, {0, 14}, {0, 1}},
        {"brush", BrushAnnotation{{}, {{0, 0}, {60, 0}, {60, 60}}, color, 6}, {53, 30}, {-1, 0}},
        {"dot", BrushAnnotation{{}, {{5, 5}}, color, 6}, {5, 9}, {0, 1}},
        {"text", TextAnnotation{{}, {0, 0, 50, 20}, {}, color, 16}, {53.2, 22.4}, {0.8, 0.6}},
        {"blur", BlurAnnotation{{}, {0, 0, 50, 20}, 10, color, 0}, {54, 10}, {1, 0}},
    };
    constexpr double trace = 1e-9;
    for (const Row& row : rows) {
        EXPECT_TRUE(isErased(row.annotation, row.last - trace * row.away, radius)) << row.name;
        EXPECT_FALSE(isErased(row.annotation, row.last + trace * row.away, radius)) << row.name;
    }
    for (const Row& row : {rows[2], rows[3], rows[4], rows[5], rows[6], rows[7], rows[12]})
        EXPECT_TRUE(isErased(row.annotation, row.last, radius)) << row.name;
    EXPECT_FALSE(isErased(arrow, {50, 85}, radius)) << "control points are not followed";
    EXPECT_TRUE(isErased(circle(FillMode::both), {0, 0}, radius));
    EXPECT_FALSE(isErased(circle(FillMode::stroke), {0, 0}, radius));
    EXPECT_TRUE(isErased(rectangle(FillMode::both), {50, 40}, radius));
    EXPECT_FALSE(isErased(BrushAnnotation{{}, {}, color, 6}, {0, 0}, radius));
}

TEST(HitTest, ReachesTenPointsAroundAndTurnsWithTheRecord) {
    RectangleAnnotation bar{{}, {0, 40, 100, 20}};
    const auto hits = [&bar](QPointF point) { return isHit(bar, point); };
    EXPECT_TRUE(hits({110, 70}) && hits({-10, 30}));
    EXPECT_FALSE(hits({110.1, 50}) || hits({50, 70.1}));
    bar.rotation = 90;
    EXPECT_TRUE(hits({50, 108}) && hits({50, -8}));
    EXPECT_FALSE(hits({100, 50}));
    bar.rotation = 45;
    EXPECT_TRUE(hits({85, 85})) << "clockwise on the screen";
    EXPECT_FALSE(hits({85, 15}));
    EmojiAnnotation emoji{{}, {0, 0}, {}, 20};
    emoji.rotation = 45;
    EXPECT_TRUE(isHit(emoji, {19.5, 19.5})) << "emojis are hit in their upright frame";
}

TEST(HitTest, FindsTheSameAmongManyAsOneByOne) {
    std::mt19937 random(3);
    std::uniform_real_distribution<double> place(0, 1000);
    std::vector<AnyAnnotation> annotations;
    for (int round = 0; round < 30; ++round) {
        for (AnyAnnotation each : oneOfEach()) {
            each.setBounds({place(random), place(random), place(random) / 5, place(random) / 20});
            annotations.push_back(each);
        }
    }
    AnnotationViewModel model(annotations);
    const auto compare = [&] {
        std::size_t found = 0;
        for (int i = 0; i < 300; ++i) {
            const QPointF point(place(random), place(random));
            std::vector<AnyAnnotation> expected;
            std::copy_if(model.annotations().rbegin(), model.annotations().rend(),
                         std::back_inserter(expected),
                         [&](const auto& each) { return isHit(each, point); });
            EXPECT_EQ(model.annotationsAt(point), expected);
            EXPECT_EQ(model.annotationAt(point),
                      expected.empty() ? std::nullopt : std::optional(expected.front()));
            found += expected.size();
        }
        EXPECT_GT(found, 100u);
    };
    compare();
    model.deleteAnnotation(annotations[5].id());
    AnyAnnotation moved = annotations[7];
    moved.setBounds({0, 0, 900, 900});
    model.updateAnnotation(moved);
    model.bringToFront(annotations[3].id());
    compare();
    model.addAnnotation(RectangleAnnotation{QUuid::createUuid(), {100, 100, 800, 700}});
    compare();
}

TEST(HitTest, FindsWhatFuzzingHadHidden) {
    const QDir folder(QStringLiteral(KESTRIO_SOURCE_DIR "/tests/annotation/fuzzed"));
    const QStringList names = folder.entryList(QDir::Files);
    EXPECT_FALSE(names.isEmpty());
    for (const QString& name : names) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const AnnotationViewModel model(decodeJsonText<std::vector<AnyAnnotation>>(file.readAll()));
        for (const AnyAnnotation& annotation : model.annotations()) {
            const QPointF center = annotation.bounds().center();
            EXPECT_EQ(isHit(annotation, center), model.annotationAt(center).has_value())
                << name.toStdString();
        }
    }
}

}  // namespace
}  // namespace kestrio
