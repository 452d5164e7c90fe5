#pragma once

#include "platform/linux/recognition/ReadLine.h"

#include <memory>
#include <mutex>
#include <stop_token>
#include <string>
#include <vector>

namespace kestrio {

/// Reads single lines in scripts that the main reader does not know, by Tesseract, loaded when the
/// first such line comes. Threads may share it; each reads with an instance of its own.
class TesseractLibrary {
  public:
    TesseractLibrary();
    ~TesseractLibrary();
    TesseractLibrary(const TesseractLibrary&) = delete;
    TesseractLibrary& operator=(const TesseractLibrary&) = delete;

    /// The characters of the line in the language of this model, such as "jpn", as they stand from
    /// the left, without spaces. Nothing where library or model are not installed. Throws Cancelled
    /// soon after a stop.
    Glyphs read(const LineImage& line, const std::string& model, const std::stop_token& stop);

  private:
    struct Functions;
    class Instance;

    std::unique_ptr<Instance> take(const std::string& model);
    void giveBack(std::unique_ptr<Instance> instance);

    std::unique_ptr<Functions> functions_;  ///< empty where the library is not installed
    std::mutex lock_;
    std::vector<std::unique_ptr<Instance>> idle_;
};

}  // namespace kestrio
