#pragma once

#include <QtGlobal>

#include <vector>

namespace kestrio {

/// Turns consecutive rows of a picture into filtered PNG rows: what each byte differs from its
/// neighbours' prediction by, with the prediction chosen row by row for what compresses best. The
/// first row's does not look at the row above, so that pieces of a picture can be encoded, and
/// decoded, independently.
class PngRowFilter {
  public:
    /// `rowBytes` without the filter byte; `pixelBytes` is 3 or 4.
    PngRowFilter(int rowBytes, int pixelBytes);

    /// Where to write the bytes of the next row before filterRow().
    uchar* row() { return rows_[current_].data() + margin; }

    /// Writes the filter byte and the filtered row: rowBytes + 1 bytes.
    void filterRow(uchar* target);

  private:
    // Zeros left of the picture; as wide as a vector load.
    static constexpr int margin = 32;

    int rowBytes_;
    int pixelBytes_;
    int current_ = 0;
    bool isFirst_ = true;
    std::vector<uchar> rows_[2];
};

}  // namespace kestrio
