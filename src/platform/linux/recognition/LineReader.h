#pragma once

#include "platform/linux/recognition/LineImage.h"
#include "platform/linux/recognition/OnnxRuntime.h"
#include "platform/linux/recognition/ReadLine.h"

#include <QSet>
#include <QStringList>

namespace kestrio {

/// Reads lines by a model that gives a probability for each character at each step of 8 pixels
/// (connectionist temporal classification, decoded greedily).
class LineReader {
  public:
    /// `characters` are those of the model in its order. Throws TextRecognitionError where it is
    /// not a list for this model.
    LineReader(std::shared_ptr<const OnnxModel> model, QStringList characters);

    /// The characters of the line with their centers and confidences, and the spaces between them.
    /// Lines without ideographs are read in Latin letters only. Threads may share the reader.
    /// Throws what the model throws.
    Glyphs read(const LineImage& line, std::stop_token stop) const;

    /// Whether the model has this character.
    bool knows(const QString& character) const { return known_.contains(character); }

  private:
    Glyphs readOnce(const LineImage& line, double stretch, const std::stop_token& stop) const;

    std::shared_ptr<const OnnxModel> model_;
    QStringList characters_;  // by class; none stands at 0
    QSet<QString> known_;
    std::vector<int> all_;  // classes
    std::vector<int> latin_;
};

}  // namespace kestrio
