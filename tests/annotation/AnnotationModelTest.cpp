#include "support/AnnotationSamples.h"

#include "annotation/model/Geometry.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

const QUuid fixedId = QUuid::fromString(QStringLiteral("0a1b2c3d-0000-4000-8000-00000000abcd"));

QByteArray onlyRecord(const AnyAnnotation& annotation) {
    const JsonValue json = encodeJson(annotation);
    return jsonText(json["data"]);
}

TEST(AnnotationJson, WritesTheAgreedKeysInTheirOrder) {
    const CodableColor black{0, 0, 0, 1};
    const QByteArray id = R"({"id":"0A1B2C3D-0000-4000-8000-00000000ABCD",)";
    const QByteArray color = R"("color":{"red":0,"green":0,"blue":0,"alpha":1},)";
    const std::pair<AnyAnnotation, QByteArray> rows[] = {
        {ArrowAnnotation{fixedId, {1, 2}, {3, 4.5}, {{5, 6}}, black, 2},
         R"("startPoint":[1,2],"endPoint":[3,4.5],"controlPoints":[[5,6]],)" + color +
             R"("strokeWidth":2})"},
        {RectangleAnnotation{fixedId, {1, 2, 3, 4}, black, 2, FillMode::both, 5, 0},
         R"("bounds":[[1,2],[3,4]],)" + color +
             R"("strokeWidth":2,"fillMode":"both","cornerRadius":5,"rotation":0})"},
        {CircleAnnotation{fixedId, {1, 2}, 3, black, 2, FillMode::stroke},
         R"("center":[1,2],"radius":3,)" + color + R"("strokeWidth":2,"fillMode":"stroke"})"},
        {TextAnnotation{fixedId,
                        {1, 2, 3, 4},
                        QStringLiteral("a"),
                        black,
                        16,
                        CodableFontWeight::ultraLight,
                        std::nullopt,
                        CodableTextAlignment::leading,
                        0,
                        90},
         R"("bounds":[[1,2],[3,4]],"text":"a",)" + color +
             R"("fontSize":16,"fontWeight":"ultraLight","alignment":"leading","strokeWidth":0,)"
             R"("rotation":90})"},
        {NumberAnnotation{fixedId, {1, 2}, -3, black, 32, 0},
         R"("center":[1,2],"number":-3,)" + color + R"("size":32,"strokeWidth":0})"},
        {BrushAnnotation{fixedId, {{1, 2}}, black, 2, true},
         R"("points":[[1,2]],)" + color + R"("strokeWidth":2,"isHighlighter":true})"},
        {BlurAnnotation{fixedId, {1, 2, 3, 4}, 10, black, 0, BlurType::solid, 0.5},
         R"("bounds":[[1,2],[3,4]],"blurRadius":10,)" + color +
             R"("strokeWidth":0,"blurType":"solid","intensity":0.5})"},
        {EmojiAnnotation{fixedId, {1, 2}, QStringLiteral("x"), 48, black, 0, 5},
         R"("center":[1,2],"emoji":"x","size":48,)" + color + R"("strokeWidth":0,"rotation":5})"},
        {MeasurementAnnotation{fixedId, {1, 2}, {3, 4}, black, 2},
         R"("startPoint":[1,2],"endPoint":[3,4],)" + color + R"("strokeWidth":2})"},
    };
    for (const auto& [annotation, expected] : rows)
        EXPECT_EQ(onlyRecord(annotation), id + expected);
    const JsonValue highlighter = encodeJson(rows[5].first);
    EXPECT_EQ(highlighter.begin().key(), "type");
    EXPECT_EQ(highlighter["type"], "brush");
    EXPECT_EQ(highlighter.size(), 2u);
}

TEST(AnnotationJson, EveryKindRoundTrips) {
    const std::vector<AnyAnnotation> before = oneOfEach();
    const QByteArray text = encodeJsonText(before);
    const auto after = decodeJsonText<std::vector<AnyAnnotation>>(text);
    EXPECT_EQ(after, before);
    EXPECT_EQ(encodeJsonText(after), text) << "what equality passes over is kept too";
    EXPECT_EQ(after[5].type(), AnnotationType::brush);
    EXPECT_EQ(after[6].type(), AnnotationType::highlighter);
}

TEST(AnnotationJson, OnlyTheLateRotationAndTheFamilyMayBeMissing) {
    const std::vector<AnyAnnotation> samples = oneOfEach();
    for (const AnyAnnotation& sample : samples) {
        const JsonValue whole = encodeJson(sample);
        for (const auto& [key, value] : whole["data"].items()) {
            JsonValue cut = encodeJson(samples);
            JsonValue& data = cut[3]["data"] = whole["data"];
            cut[3]["type"] = whole["type"];
            data.erase(key);
            const bool mayMiss = key == "fontFamily" ||
                                 (key == "rotation" && sample.type() != AnnotationType::emoji);
            try {
                const auto list = decodeJson<std::vector<AnyAnnotation>>(JsonReader(cut));
                EXPECT_TRUE(mayMiss) << key;
                EXPECT_EQ(encodeJson(list[3])["data"].value("rotation", 0.0),
                          key == "rotation" ? 0.0 : data.value("rotation", 0.0));
            } catch (const JsonError& error) {
                EXPECT_FALSE(mayMiss) << key;
                EXPECT_EQ(error.path(), QStringLiteral("[3].data.") + QString::fromStdString(key));
            }
            data[key] = JsonValue::object();
            if (key == "color") data[key] = 1;
            EXPECT_THROW(decodeJson<std::vector<AnyAnnotation>>(JsonReader(cut)), JsonError) << key;
        }
    }
    JsonValue unknown = encodeJson(samples);
    unknown[2]["type"] = "highlighter";
    EXPECT_THROW(decodeJson<std::vector<AnyAnnotation>>(JsonReader(unknown)), JsonError);
}

TEST(AnnotationJson, KeepsTheBeginningOfAStrokeThatIsTooLong) {
    BrushAnnotation stroke{fixedId, {}, {}, 2, false};
    for (int i = 0; i < 10001; ++i)
        stroke.points.emplace_back(i, -i);
    const auto read = decodeJsonText<AnyAnnotation>(encodeJsonText(AnyAnnotation(stroke)));
    stroke.points.pop_back();
    EXPECT_EQ(read, AnyAnnotation(stroke));
}

TEST(AnnotationEquality, ComparesTheListedFieldsOnly) {
    const std::vector<std::string> ignored[] = {
        {"color"},                             // arrow
        {"color"},                             // rectangle
        {"color"},                             // circle
        {"color", "fontWeight", "alignment"},  // text
        {"color", "strokeWidth"},              // number
        {"color"},                             // brush
        {"color"},                             // highlighter
        {"color", "strokeWidth"},              // blur
        {"color", "strokeWidth"},              // emoji
        {"color"},                             // measurement
    };
    const JsonValue others = {{"color", {{"red", 1}, {"green", 0}, {"blue", 0}, {"alpha", 0}}},
                              {"fontWeight", "black"},
                              {"alignment", "center"},
                              {"fillMode", "stroke"},
                              {"blurType", "solid"},
                              {"isHighlighter", nullptr},
                              {"id", encodeJson(fixedId)}};
    const std::vector<AnyAnnotation> samples = oneOfEach();
    ASSERT_EQ(samples.size(), std::size(ignored)) << "each kind has its row";
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const JsonValue whole = encodeJson(samples[i]);
        for (const auto& [key, value] : whole["data"].items()) {
            JsonValue changed = whole;
            JsonValue& field = changed["data"][key];
            if (key == "isHighlighter") {
                field = !value.get<bool>();
            } else if (others.contains(key)) {
                field = others[key];
            } else if (value.is_number()) {
                field = value.get<double>() + 1;
            } else if (value.is_string()) {
                field = "other";
            } else if (key == "bounds" || key == "points" || key == "controlPoints") {
                field[0][0] = 1000;
            } else {
                field[0] = 1000;
            }
            const bool isIgnored = std::ranges::find(ignored[i], key) != ignored[i].end();
            EXPECT_EQ(decodeJson<AnyAnnotation>(JsonReader(changed)) == samples[i], isIgnored)
                << i << " " << key;
        }
    }
}

TEST(AnnotationBounds, ReadAndWrittenByKind) {
    struct Row {
        AnyAnnotation annotation;
        QRectF bounds;
        AnyAnnotation reshaped;  ///< to (100, 200, 40, 80)
    };
    const QUuid id = fixedId;
    const Row rows[] = {
        {RectangleAnnotation{id, {1, 2, 3, 4}},
         {1, 2, 3, 4},
         RectangleAnnotation{id, {100, 200, 40, 80}}},
        {CircleAnnotation{id, {10, 20}, 5}, {5, 15, 10, 10}, CircleAnnotation{id, {120, 240}, 20}},
        {NumberAnnotation{id, {10, 20}, 1, {}, 6},
         {7, 17, 6, 6},
         NumberAnnotation{id, {120, 240}, 1, {}, 40}},
        {EmojiAnnotation{id, {10, 20}, {}, 6},
         {7, 17, 6, 6},
         EmojiAnnotation{id, {120, 240}, {}, 40}},
        {BrushAnnotation{id, {{0, 10}, {10, 0}, {20, 40}}},
         {0, 0, 20, 40},
         BrushAnnotation{id, {{100, 220}, {120, 200}, {140, 280}}}},
        {BrushAnnotation{id, {{0, 10}, {20, 10}}},
         {0, 10, 20, 0},
         BrushAnnotation{id, {{0, 10}, {20, 10}}}},
        {BrushAnnotation{id, {}}, {0, 0, 0, 0}, BrushAnnotation{id, {}}},
        {MeasurementAnnotation{id, {20, 5}, {0, 45}},
         {0, 5, 20, 40},
         MeasurementAnnotation{id, {140, 200}, {100, 280}}},
        {MeasurementAnnotation{id, {0, 7}, {20, 7}},
         {0, 7, 20, 0},
         MeasurementAnnotation{id, {100, 240}, {140, 240}}},
    };
    for (const Row& row : rows) {
        EXPECT_TRUE(identical(row.annotation.bounds(), row.bounds));
        AnyAnnotation reshaped = row.annotation;
        reshaped.setBounds({100, 200, 40, 80});
        EXPECT_EQ(reshaped, row.reshaped) << encodeJsonText(row.annotation).toStdString();
    }
}

TEST(AnnotationBounds, AnUprightArrowCanBeMovedByItsBounds) {
    AnyAnnotation arrow = ArrowAnnotation{fixedId, {5, 0}, {5, 10}};
    const QRectF bounds = arrow.bounds();
    EXPECT_GE(bounds.width(), 1e-9);
    EXPECT_LT(bounds.width(), 1.001e-9);
    EXPECT_GT((AnyAnnotation(ArrowAnnotation{fixedId, {9e8, 0}, {9e8, 10}}).bounds().width()), 7e-7)
        << "the pad grows with the coordinate";
    arrow.setBounds({25, 0, bounds.width() * 2, bounds.height()});
    EXPECT_EQ(arrow, AnyAnnotation(ArrowAnnotation{fixedId, {25, 0}, {25, 10}}));
}

TEST(TextStyle, WeightsAreThoseOfFonts) {
    EXPECT_EQ(fontWeight(CodableFontWeight::regular), QFont::Normal);
    EXPECT_EQ(fontWeight(CodableFontWeight::black), QFont::Black);
}

}  // namespace
}  // namespace kestrio
