#pragma once

#include "core/Error.h"
#include "core/Task.h"

#include <QImage>
#include <QRect>
#include <QStringList>
#include <vector>

namespace kestrio {

/// One line of text in a picture. All rectangles are in pixels of the picture, from its top left.
struct RecognizedLine {
    QString text;
    QRectF rect;
    double confidence = 0;  ///< 0 to 1
    /// Where each UTF-16 unit of `text` is, as high as the line; both halves of a surrogate pair
    /// have the same rectangle, and a space has that of its gap. Empty where the engine cannot say.
    std::vector<QRectF> characters;
    /// How sure the engine is of each UTF-16 unit, 0 to 1; as many as `characters`.
    std::vector<double> characterConfidences;

    /// What the units [start, start + length) cover, as one rectangle. The whole line where the
    /// engine gave no characters; empty where the range is.
    QRectF rectOf(int start, int length) const;
};

struct TextRecognitionRequest {
    QImage picture;
    QRect region;           ///< pixels of the picture; empty for all of it
    QStringList languages;  ///< BCP 47 tags of what may be written there, the likeliest first;
                            ///< empty for all that the engine knows
};

/// Text could not be read.
class TextRecognitionError : public Error {
  public:
    enum class Case {
        unavailable,  ///< no engine, or not all that it needs, is installed
        failed,       ///< the engine gave up on this picture
    };

    /// `reason` is a whole sentence for the user.
    TextRecognitionError(Case which, QString reason) : which_(which), reason_(std::move(reason)) {}
    Case which() const { return which_; }
    QString errorDescription() const override { return reason_; }

  private:
    Case which_;
    QString reason_;
};

/// Reads text in pictures on this machine. What it needs for that is loaded at the first use and
/// released some time after the last. Main thread only.
class TextRecognizer {
  public:
    virtual ~TextRecognizer() = default;

    /// Why nothing can be read here, as a sentence for the user; empty where it can. Looks at no
    /// more than which files exist.
    virtual QString obstacle() const = 0;
    /// The lines of the region in reading order, each with at least one character. Works on threads
    /// of its own. Throws TextRecognitionError, and Cancelled within 200 ms of a stop, which ends
    /// the work too.
    virtual Task<std::vector<RecognizedLine>> recognize(TextRecognitionRequest request,
                                                        std::stop_token stop) = 0;
};

}  // namespace kestrio
