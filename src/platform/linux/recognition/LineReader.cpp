#include "platform/linux/recognition/LineReader.h"

#include "core/Localisation.h"
#include "platform/TextRecognizer.h"

#include <algorithm>
#include <numeric>

namespace kestrio {

namespace {

constexpr int stripHeight = 48;   // pixels; the only one that the model takes
constexpr int widestStrip = 960;  // beyond that its attention takes more than its share of time
constexpr int noCharacter = 0;    // the class
// The reader takes as long as strips are wide. Most lines are sure to be read in narrow ones; small
// proportional type, in which letters are only a step apart then, needs wide ones.
constexpr double narrow = 0.86;
constexpr double wide = 1.25;
constexpr double sure = 0.965;

Tensor modelInput(const GrayPlane& strip) {
    const size_t pixels = strip.values.size();
    Tensor input{{1, 3, strip.height, strip.width}, std::vector<float>(3 * pixels)};
    for (size_t at = 0; at < pixels; ++at)
        input.values[at] = static_cast<float>(strip.values[at]) / 127.5F - 1.0F;
    for (const size_t channel : {1, 2})
        std::copy_n(input.values.begin(), pixels,
                    input.values.begin() + static_cast<std::ptrdiff_t>(channel * pixels));
    return input;
}

/// What Latin text is written in, apart from characters that only look like those.
bool isLatinText(const QString& character) {
    static const QString symbols = QStringLiteral("“”‘’—–…•€£¥™→←↑↓✓");
    return scriptOf(character) == Script::latin || symbols.contains(character);
}

struct Choice {
    int character = noCharacter;
    double probability = 0;
};

Choice bestOf(const float* row, const std::vector<int>& classes) {
    Choice best;
    float most = -1;
    for (const int candidate : classes) {
        if (row[candidate] <= most) continue;
        most = row[candidate];
        best.character = candidate;
    }
    best.probability = most;
    return best;
}

}  // namespace

LineReader::LineReader(std::shared_ptr<const OnnxModel> model, QStringList characters)
    : model_(std::move(model)), characters_(std::move(characters)) {
    known_ = QSet<QString>(characters_.begin(), characters_.end());
    characters_.prepend(QString());
    characters_.append(QStringLiteral(" "));
    all_.resize(static_cast<size_t>(characters_.size()));
    std::iota(all_.begin(), all_.end(), 0);
    std::copy_if(all_.begin(), all_.end(), std::back_inserter(latin_), [this](int candidate) {
        return candidate == noCharacter || isLatinText(characters_[candidate]);
    });
}

namespace {

/// The characters of one strip, added to those of the strips before it.
class StripDecoder {
  public:
    StripDecoder(const QStringList& characters, const LineStrip& strip, const Tensor& output)
        : characters_(characters), strip_(strip), output_(output) {}

    void decode(const std::vector<int>& classes, Glyphs& glyphs, int& spaces) const {
        const auto steps = static_cast<size_t>(output_.shape[1]);
        const auto stride = static_cast<size_t>(output_.shape[2]);
        int last = noCharacter;
        double weight = 0;
        double moment = 0;
        for (size_t at = 0; at < steps; ++at) {
            const Choice best = bestOf(output_.values.data() + at * stride, classes);
            if (best.character != noCharacter && best.character != last) {
                weight = moment = 0;
                begin(characters_[best.character], glyphs, spaces);
            }
            last = best.character;
            if (last == noCharacter || characters_[last] == QLatin1String(" ")) continue;
            weight += best.probability;
            moment += best.probability * (static_cast<double>(at) + 0.5);
            Glyph& glyph = glyphs.back();
            glyph.center = strip_.left + moment / weight * stepWidth() / strip_.scale;
            glyph.confidence = std::max(glyph.confidence, best.probability);
        }
    }

  private:
    static void begin(const QString& character, Glyphs& glyphs, int& spaces) {
        if (character == QLatin1String(" ")) {
            ++spaces;
            return;
        }
        Glyph glyph;
        glyph.text = character;
        glyph.spacesBefore = glyphs.empty() ? 0 : std::min(spaces, 1);
        glyphs.push_back(std::move(glyph));
        spaces = 0;
    }

    double stepWidth() const {
        return static_cast<double>(strip_.pixels.width) / static_cast<double>(output_.shape[1]);
    }

    const QStringList& characters_;
    const LineStrip& strip_;
    const Tensor& output_;
};

}  // namespace

Glyphs LineReader::read(const LineImage& line, std::stop_token stop) const {
    Glyphs glyphs = readOnce(line, narrow, stop);
    const double confidence = meanConfidence(glyphs);
    if (confidence >= sure || countOf(glyphs, Script::ideograph) > 0) return glyphs;
    Glyphs again = readOnce(line, wide, stop);
    return meanConfidence(again) > confidence ? again : glyphs;
}

Glyphs LineReader::readOnce(const LineImage& line, double stretch,
                            const std::stop_token& stop) const {
    const auto strips = lineStrips(line, {stripHeight, widestStrip, stretch});
    std::vector<Tensor> outputs;
    for (const LineStrip& strip : strips) {
        outputs.push_back(model_->run(modelInput(strip.pixels), stop));
        const Tensor& output = outputs.back();
        if (output.shape.size() != 3 || output.shape[2] != characters_.size())
            throw TextRecognitionError(
                TextRecognitionError::Case::unavailable,
                Kestrio::tr("Text recognition is damaged: the list of characters does not fit the "
                            "model. Install Kestrio again."));
    }
    Glyphs glyphs;
    for (const auto* classes : {&all_, &latin_}) {
        glyphs.clear();
        int spaces = 0;
        for (size_t index = 0; index < strips.size(); ++index)
            StripDecoder(characters_, strips[index], outputs[index])
                .decode(*classes, glyphs, spaces);
        if (countOf(glyphs, Script::ideograph) + countOf(glyphs, Script::kana) > 0) break;
    }
    return glyphs;
}

}  // namespace kestrio
