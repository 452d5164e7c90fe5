#include "imaging/codecs/DeflateSegment.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <span>

namespace kestrio {

namespace {

// The widest load of the reader below.
constexpr qsizetype readAhead = 8;

constexpr int endOfBlock = 256;
constexpr int literals = 288;
constexpr int distances = 32;

enum class BlockType { stored = 0, fixedCodes = 1, dynamicCodes = 2 };

class BitReader {
  public:
    explicit BitReader(const uchar* data) : data_(data) {}

    // At least 56 valid bits from the current position.
    quint64 peek() const {
        return qFromLittleEndian<quint64>(data_ + (position_ >> 3)) >> (position_ & 7);
    }
    unsigned take(int count) {
        const auto bits = static_cast<unsigned>(peek() & ((quint64(1) << count) - 1));
        position_ += count;
        return bits;
    }
    void skip(qint64 count) { position_ += count; }
    void alignToByte() { position_ = (position_ + 7) & ~qint64(7); }
    qint64 position() const { return position_; }

  private:
    const uchar* data_;
    qint64 position_ = 0;
};

// A prefix code as one table over its longest code word.
class CodeTable {
  public:
    struct Entry {
        quint16 symbol = 0;
        // Of the code word and of the extra bits that follow it.
        quint8 bits = 0;
    };

    explicit CodeTable(std::span<const quint8> lengths, int (*extraBits)(int symbol)) {
        width_ = std::max<int>(1, *std::max_element(lengths.begin(), lengths.end()));
        entries_.resize(size_t(1) << width_);
        unsigned code = 0;
        for (int length = 1; length <= width_; ++length, code <<= 1) {
            for (int symbol = 0; symbol < static_cast<int>(lengths.size()); ++symbol) {
                if (lengths[symbol] != length) continue;
                place(code++, length,
                      {static_cast<quint16>(symbol),
                       static_cast<quint8>(length + extraBits(symbol))});
            }
        }
    }

    Entry entry(quint64 bits) const { return entries_[bits & (entries_.size() - 1)]; }

  private:
    // Code words are stored with their first bit lowest.
    void place(unsigned code, int length, Entry entry) {
        unsigned reversed = 0;
        for (int bit = 0; bit < length; ++bit)
            reversed |= (code >> bit & 1) << (length - 1 - bit);
        for (size_t index = reversed; index < entries_.size(); index += size_t(1) << length) {
            entries_[index] = entry;
        }
    }

    int width_;
    std::vector<Entry> entries_;
};

int noExtraBits(int) {
    return 0;
}

int extraLengthBits(int symbol) {
    return symbol < 265 || symbol == 285 ? 0 : (symbol - 261) / 4;
}

int extraDistanceBits(int symbol) {
    return symbol < 4 ? 0 : symbol / 2 - 1;
}

void skipSymbols(BitReader& reader, std::span<const quint8> literalLengths,
                 std::span<const quint8> distanceLengths) {
    // A length and a distance take 48 bits at most: with no more than this taken before, one peek
    // serves another round.
    constexpr int mostBitsBefore = 56 - 48;
    const CodeTable literalCode(literalLengths, extraLengthBits);
    const CodeTable distanceCode(distanceLengths, extraDistanceBits);
    for (;;) {
        const quint64 bits = reader.peek();
        int taken = 0;
        do {
            const CodeTable::Entry entry = literalCode.entry(bits >> taken);
            taken += entry.bits;
            if (entry.symbol < endOfBlock) continue;
            if (entry.symbol == endOfBlock) {
                reader.skip(taken);
                return;
            }
            taken += distanceCode.entry(bits >> taken).bits;
        } while (taken <= mostBitsBefore);
        reader.skip(taken);
    }
}

void skipFixedBlock(BitReader& reader) {
    std::array<quint8, literals> literalLengths;
    std::fill_n(literalLengths.begin(), 144, quint8(8));
    std::fill_n(literalLengths.begin() + 144, 112, quint8(9));
    std::fill_n(literalLengths.begin() + 256, 24, quint8(7));
    std::fill_n(literalLengths.begin() + 280, 8, quint8(8));
    std::array<quint8, distances> distanceLengths;
    distanceLengths.fill(5);
    skipSymbols(reader, literalLengths, distanceLengths);
}

void skipDynamicBlock(BitReader& reader) {
    static constexpr quint8 order[] = {16, 17, 18, 0, 8,  7, 9,  6, 10, 5,
                                       11, 4,  12, 3, 13, 2, 14, 1, 15};
    const unsigned literalCount = reader.take(5) + 257;
    const unsigned distanceCount = reader.take(5) + 1;
    const unsigned lengthCodes = reader.take(4) + 4;
    std::array<quint8, std::size(order)> codeLengths{};
    for (unsigned index = 0; index < lengthCodes; ++index) {
        codeLengths[order[index]] = static_cast<quint8>(reader.take(3));
    }
    const CodeTable lengthCode(codeLengths, noExtraBits);
    std::array<quint8, literals + distances> lengths{};
    for (unsigned index = 0; index < literalCount + distanceCount;) {
        const auto [symbol, bits] = lengthCode.entry(reader.peek());
        reader.skip(bits);
        if (symbol < 16) {
            lengths[index++] = static_cast<quint8>(symbol);
            continue;
        }
        const unsigned repeats = symbol == 16   ? 3 + reader.take(2)
                                 : symbol == 17 ? 3 + reader.take(3)
                                                : 11 + reader.take(7);
        const quint8 repeated = symbol == 16 ? lengths[index - 1] : 0;
        std::fill_n(lengths.begin() + index, repeats, repeated);
        index += repeats;
    }
    skipSymbols(reader, std::span(lengths).first(literalCount),
                std::span(lengths).subspan(literalCount, distanceCount));
}

}  // namespace

void makeContinuable(std::vector<uchar>& stream) {
    const size_t size = stream.size();
    stream.resize(size + readAhead);
    BitReader reader(stream.data());
    bool last = false;
    while (!last) {
        const qint64 header = reader.position();
        last = reader.take(1);
        if (last) stream[header >> 3] &= static_cast<uchar>(~(1u << (header & 7)));
        switch (static_cast<BlockType>(reader.take(2))) {
            case BlockType::stored: {
                reader.alignToByte();
                const unsigned length = reader.take(16);
                reader.skip(16 + qint64(length) * 8);
                break;
            }
            case BlockType::fixedCodes:
                skipFixedBlock(reader);
                break;
            case BlockType::dynamicCodes:
                skipDynamicBlock(reader);
                break;
        }
    }
    // The header of a stored block is three zero bits, which the padding up to the border supplies.
    reader.skip(3);
    reader.alignToByte();
    stream.resize(static_cast<size_t>(reader.position() >> 3));
    stream.insert(stream.end(), {0x00, 0x00, 0xff, 0xff});
}

}  // namespace kestrio
