#pragma once

#include <QImage>
#include <cstdint>
#include <vector>

namespace kestrio {

/// A frame at full resolution, reduced to one number for each row of each of a few vertical strips.
/// Two cells with the same hash show the same pixels, save for a chance of one in four thousand
/// million. Keys are the same, but 0 for cells that look like the cell above them: these say
/// nothing about where a row has gone.
class RowSignature {
  public:
    RowSignature() = default;
    /// `frame` is in one of Image's formats; alpha does not count.
    explicit RowSignature(const QImage& frame);

    int height() const { return height_; }
    int strips() const { return strips_; }
    /// The keys of a strip, one for each row from the top.
    const std::uint32_t* keys(int strip) const {
        return keys_.data() + std::size_t(strip) * height_;
    }
    /// The keys that occur once in their strip, 0 for those of rows that repeat.
    const std::uint32_t* distinctKeys(int strip) const {
        return distinctKeys_.data() + std::size_t(strip) * height_;
    }
    /// The hashes, likewise.
    const std::uint32_t* hashes(int strip) const {
        return hashes_.data() + std::size_t(strip) * height_;
    }

  private:
    void findRepeats(int strip);

    int height_ = 0;
    int strips_ = 0;
    std::vector<std::uint32_t> hashes_;
    std::vector<std::uint32_t> keys_;
    std::vector<std::uint32_t> distinctKeys_;
};

}  // namespace kestrio
