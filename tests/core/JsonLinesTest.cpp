#include "core/JsonLines.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

constexpr qsizetype longest = 16;

TEST(LineReader, CutsLinesWhereverTheStreamIsCut) {
    const QByteArray stream("one\n\ntwo, longer\r\nthree\n");
    const QByteArrayList lines{"one", "", "two, longer\r", "three"};
    for (qsizetype piece = 1; piece <= stream.size(); ++piece) {
        LineReader reader(longest);
        QByteArrayList read;
        for (qsizetype at = 0; at < stream.size(); at += piece) {
            reader.append(stream.mid(at, piece));
            while (const auto line = reader.takeLine())
                read << *line;
        }
        EXPECT_EQ(read, lines) << "in pieces of " << piece;
        EXPECT_FALSE(reader.isBroken());
    }
}

TEST(LineReader, KeepsALineBackUntilItsEnd) {
    LineReader reader(longest);
    reader.append("almost");
    EXPECT_FALSE(reader.takeLine());
    EXPECT_FALSE(reader.takeLine());
    reader.append("\nnext");
    EXPECT_EQ(reader.takeLine(), QByteArray("almost"));
    EXPECT_FALSE(reader.takeLine());
}

TEST(LineReader, EndsWithALineBeyondTheLimit) {
    const QByteArray full(longest, 'x');
    for (const char* end : {"", "\n"}) {
        LineReader reader(longest);
        reader.append("before\n" + full + '\n' + full + 'x' + end);
        EXPECT_EQ(reader.takeLine(), QByteArray("before"));
        EXPECT_EQ(reader.takeLine(), full) << "just within the limit";
        EXPECT_FALSE(reader.takeLine());
        EXPECT_TRUE(reader.isBroken());
        reader.append("\nafter\n");
        EXPECT_FALSE(reader.takeLine()) << "where a line begins is not known any more";
    }
}

TEST(LineReader, PassesGarbageOnAsItIs) {
    const QByteArray garbage("\0\xff{]\x80", 5);
    LineReader reader(longest);
    reader.append(garbage + '\n');
    const auto line = reader.takeLine();
    EXPECT_EQ(line, garbage);
    EXPECT_THROW(decodeJsonText<QString>(*line), JsonError);
}

TEST(LineReader, ReadsWhatIsWrittenAsOneLine) {
    const QString text = QStringLiteral("two\nlines\r and Größe\u2028");
    LineReader reader(1024);
    reader.append(messageLine(text));
    EXPECT_EQ(decodeJsonText<QString>(reader.takeLine().value()), text);
    EXPECT_FALSE(reader.takeLine());
}

}  // namespace
}  // namespace kestrio
