#include "core/Json.h"
#include "core/JsonText.h"

#include "core/CodableColor.h"
#include "core/Stopwatch.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

enum class Fruit { apple, pear };
constexpr EnumTable<Fruit, 2> fruits = {{{Fruit::apple, "apple"}, {Fruit::pear, "pear"}}};
constexpr const auto& enumTable(Fruit) {
    return fruits;
}

struct Inner {
    double weight = 1;
    Fruit fruit = Fruit::apple;

    bool operator==(const Inner&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple(jsonField("weight", &Inner::weight), jsonField("fruit", &Inner::fruit));
    }
};

struct Outer {
    QString name;
    std::optional<double> note = 7;  // a default that decoding must not leave in place
    std::vector<Inner> items;
    int tolerant = 42;

    bool operator==(const Outer&) const = default;
    static constexpr auto jsonFields() {
        return std::tuple(jsonField("name", &Outer::name), jsonField("note", &Outer::note),
                          jsonField("items", &Outer::items),
                          defaultedField("tolerant", &Outer::tolerant));
    }
};

TEST(Json, KeysKeepTheirOrderAndAbsentOptionalsAreLeftOut) {
    const Outer record{QStringLiteral("a\"b"), std::nullopt, {{0.5, Fruit::pear}}, 3};
    const QByteArray text = encodeJsonText(record);
    EXPECT_EQ(text, R"({"name":"a\"b","items":[{"weight":0.5,"fruit":"pear"}],"tolerant":3})");
    EXPECT_EQ(decodeJsonText<Outer>(text), record);
}

TEST(Json, DefaultedKeysSwallowTheirOwnErrorsOnly) {
    EXPECT_EQ(decodeJsonText<Outer>(R"({"name":"","items":[]})").tolerant, 42);
    EXPECT_EQ(decodeJsonText<Outer>(R"({"name":"","items":[],"tolerant":"x"})").tolerant, 42);
}

TEST(Json, ErrorsNameThePath) {
    struct Row {
        const char* text;
        const char* path;
    };
    const Row rows[] = {
        {R"({"items":[]})", "name"},
        {R"({"name":null,"items":[]})", "name"},
        {R"({"name":1,"items":[]})", "name"},
        {R"({"name":"","items":{}})", "items"},
        {R"({"name":"","items":[{"weight":1,"fruit":"apple"},{"weight":"x","fruit":"apple"}]})",
         "items[1].weight"},
        {R"({"name":"","items":[{"weight":1,"fruit":"plum"}]})", "items[0].fruit"},
        {R"({"name":"","items":[3]})", "items[0]"},
        {R"([])", ""},
        {R"({"name":)", ""},
        {R"({"name":1e999})", ""},
        {"", ""},
    };
    for (const Row& row : rows) {
        try {
            decodeJsonText<Outer>(row.text);
            ADD_FAILURE() << row.text;
        } catch (const JsonError& error) {
            EXPECT_EQ(error.path(), QString::fromLatin1(row.path)) << row.text;
        }
    }
}

TEST(Json, SyntaxErrorsTellLineAndColumn) {
    try {
        parseJson("{\n  \"a\": oops\n}");
        ADD_FAILURE();
    } catch (const JsonError& error) {
        EXPECT_TRUE(error.errorDescription().contains(QStringLiteral("line 2"))) << error.what();
    }
}

TEST(Json, ObjectsOfAnySizeKeepTheFirstPlaceAndTheLastValueOfAKey) {
    const auto name = [](int i) { return std::string("k").append(std::to_string(i)); };
    for (const int count : {3, 16, 17, 1000}) {
        QByteArray text = "{";
        for (int round = 0; round < 2; ++round) {
            for (int i = 0; i < count; ++i) {
                text += QStringLiteral("\"k%1\":%2,").arg((i * 7 + round) % count).arg(i).toUtf8();
            }
        }
        text.back() = '}';
        JsonValue object = parseJson(text);
        ASSERT_EQ(object.size(), static_cast<std::size_t>(count));
        int i = 0;
        for (const auto& [key, value] : object.items()) {
            EXPECT_EQ(key, name(i++ * 7 % count));
            EXPECT_EQ((value.get<int>() * 7 + 1) % count, std::stoi(key.substr(1))) << count;
        }
        object.erase("k0");
        EXPECT_FALSE(object.contains("k0"));
        object["k0"] = "new";
        EXPECT_EQ(std::prev(object.end()).key(), "k0");
        for (i = 0; i < count; ++i)
            EXPECT_EQ(object.find(name(i)).key(), name(i));
    }
}

TEST(Json, ManyKeysInOneObjectTakeNoLongerThanInObjectsOfTheirOwn) {
    QByteArray together = "{";
    QByteArray apart = "[";
    for (int i = 0; i < 60000; ++i) {
        const QByteArray member = "\"key" + QByteArray::number(i) + "\":1";
        together += member + ',';
        apart += '{' + member + "},";
    }
    together.back() = '}';
    apart.back() = ']';
    const auto leastTime = [](const QByteArray& text) {
        double least = INFINITY;
        for (int round = 0; round < 3; ++round) {
            Stopwatch watch;
            EXPECT_EQ(parseJson(text).size(), 60000u);
            least = std::min(least, watch.lap());
        }
        return least;
    };
    EXPECT_LT(leastTime(together), 8 * leastTime(apart));
}

// The two parsers may only differ in speed.
TEST(Json, TheQuickParserReadsWhatTheSlowOneReads) {
    const char* const texts[] = {"0",

                                 "-0.0",
                                 "7",
                                 "-7",
                                 "9223372036854775807",
                                 "-9223372036854775808",
                                 "18446744073709551615",
                                 "1e3",
                                 "0.1",
                                 "5e-324",
                                 "1.7976931348623157e308",
                                 "true",
                                 "null",
                                 R"("")",
                                 R"("\u00e9\ud83d\ude00 \n é")",
                                 "[]",
                                 "{}",
                                 " [1, [2, {\"a\": [null]}]] ",
                                 R"({"b": 1, "a": {"b": 2}, "b": 3})"};
    for (const char* text : texts) {
        const auto quick = parseJsonQuickly(text);
        ASSERT_TRUE(quick) << text;
        const auto slow = JsonValue::parse(text);
        EXPECT_EQ(quick->dump(), slow.dump()) << text;
        EXPECT_EQ(quick->type(), slow.type()) << text;
    }
    for (const char* text : {"", "[1,]", "{'a': 1}", "[01]", "nul", "\"\x01\"", "1 2", "[1e999]"})
        EXPECT_FALSE(parseJsonQuickly(text)) << text;
}

TEST(Json, NumbersSurvive) {
    for (double number :
         {0.0, 1.0, -1.0, 0.1, 1e-300, 1e300, 9007199254740993.0, 0.30000000000000004}) {
        EXPECT_EQ(decodeJsonText<double>(encodeJsonText(number)), number);
    }
    EXPECT_EQ(encodeJsonText(32.0), "32");
    EXPECT_EQ(decodeJsonText<quint64>(encodeJsonText(quint64(0xc000000000000001))),
              0xc000000000000001);
    EXPECT_THROW(encodeJsonText(std::nan("")), JsonError);
    EXPECT_THROW(decodeJsonText<int>("3000000000"), JsonError);
    EXPECT_THROW(decodeJsonText<int>("1.5"), JsonError);
}

TEST(Json, ValuesOfEveryKindRoundTrip) {
    const QRectF rect(1.5, -2, 30, 4);
    EXPECT_EQ(encodeJsonText(rect), "[[1.5,-2],[30,4]]");
    EXPECT_EQ(decodeJsonText<QRectF>("[[1.5,-2],[30,4]]"), rect);
    EXPECT_THROW(decodeJsonText<QSizeF>("[1,2,3]"), JsonError);
    const QUuid id = QUuid::createUuid();
    EXPECT_EQ(decodeJsonText<QUuid>(encodeJsonText(id)), id);
    EXPECT_THROW(decodeJsonText<QUuid>("\"nonsense\""), JsonError);
    const QByteArray bytes("\x00\xff\x7f", 3);
    EXPECT_EQ(decodeJsonText<QByteArray>(encodeJsonText(bytes)), bytes);
    EXPECT_THROW(decodeJsonText<QByteArray>("\"not base64!\""), JsonError);
}

TEST(CodableColor, ReadsHex) {
    struct Row {
        const char* text;
        std::optional<CodableColor> color;
    };
    const Row rows[] = {
        {"#ff0000", CodableColor{1, 0, 0, 1}},
        {"00FF00", CodableColor{0, 1, 0, 1}},
        {"#fff", CodableColor{1, 1, 1, 1}},
        {"#00000080", CodableColor{0, 0, 0, 128 / 255.0}},
        {"#ff00", std::nullopt},
        {"#gg0000", std::nullopt},
        {"", std::nullopt},
        {"+12345", std::nullopt},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(CodableColor::fromHex(QString::fromLatin1(row.text)), row.color) << row.text;
    }
}

}  // namespace
}  // namespace kestrio
