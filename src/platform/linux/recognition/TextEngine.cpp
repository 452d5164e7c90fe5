#include "platform/linux/recognition/TextEngine.h"

#include "core/Cancelled.h"
#include "core/Localisation.h"
#include "core/Priority.h"
#include "platform/linux/recognition/LineSpelling.h"
#include "platform/linux/recognition/TextAreas.h"

#include <QFile>
#include <algorithm>
#include <atomic>
#include <cmath>
#include <exception>
#include <mutex>
#include <thread>

namespace kestrio {

namespace {

/// A mean confidence below which a line is taken for something that is no text.
constexpr double leastConfidence = 0.55;
/// The same for a line of one character or two, as which much of a picture may pass.
constexpr double leastShortConfidence = 0.8;
/// The same for a line of which the edge of the picture leaves a part.
constexpr double leastCutConfidence = 0.9;

QStringList readCharacters(const QByteArray& path) {
    QFile file(QFile::decodeName(path));
    if (!file.open(QIODevice::ReadOnly))
        throw TextRecognitionError(
            TextRecognitionError::Case::unavailable,
            Kestrio::tr("Text recognition is damaged: %1 cannot be loaded. Install Kestrio again.")
                .arg(file.fileName()));
    QStringList characters = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    if (characters.last().isEmpty()) characters.removeLast();
    return characters;
}

int coreCount() {
    return static_cast<int>(std::clamp(std::thread::hardware_concurrency(), 1U, 8U));
}

/// Runs `work` for each index on all cores. The first failure ends it, and is thrown.
void forEachIndex(size_t count, const std::function<void(size_t)>& work) {
    std::atomic<size_t> next{0};
    std::exception_ptr failure;
    std::mutex lock;
    const auto run = [&] {
        for (size_t index = next++; index < count; index = next++) {
            try {
                work(index);
            } catch (...) {
                const std::lock_guard guard(lock);
                if (!failure) failure = std::current_exception();
                next = count;
            }
        }
    };
    {
        std::vector<std::jthread> helpers;
        for (int helper = 1; helper < coreCount(); ++helper)
            helpers.emplace_back([&run] {
                stepBackForOthers();
                run();
            });
        run();
    }
    if (failure) std::rethrow_exception(failure);
}

bool isShort(const Glyphs& glyphs) {
    return glyphs.size() <= 2;
}

bool isText(const Glyphs& glyphs) {
    // A single ring is rather a radio button or a bullet.
    if (glyphs.size() == 1 && glyphs[0].text.toLower() == QLatin1String("o")) return false;
    return meanConfidence(glyphs) >= (isShort(glyphs) ? leastShortConfidence : leastConfidence);
}

bool hasEastAsian(const Glyphs& glyphs) {
    return countOf(glyphs, Script::ideograph) + countOf(glyphs, Script::kana) > 0;
}

/// Whether the picture may hold this language.
bool isAsked(const TextRecognitionRequest& request, const QString& language) {
    return request.languages.isEmpty() ||
           std::any_of(request.languages.begin(), request.languages.end(),
                       [&](const QString& tag) { return tag.startsWith(language); });
}

/// Whether the region's upper or lower edge runs through the line.
bool isCutOff(const LineImage& image, QRect region) {
    const bool isTopCut = image.top == 0 && image.area.top() == region.top();
    const bool isBottomCut =
        image.bottom == image.ink.height && image.area.bottom() == region.bottom();
    return isTopCut || isBottomCut;
}

/// Boxes and crosses pass for ideographs: a few of them count only beside a line of more.
void dropLoneIdeographs(std::vector<Glyphs>& lines) {
    const bool hasLine = std::any_of(lines.begin(), lines.end(), [](const Glyphs& glyphs) {
        return !isShort(glyphs) && hasEastAsian(glyphs);
    });
    if (hasLine) return;
    for (Glyphs& glyphs : lines)
        if (isShort(glyphs) && hasEastAsian(glyphs)) glyphs.clear();
}

/// The spaces before a character share the gap that it has to the one before.
void appendSpaces(RecognizedLine& line, const Glyph& before, const Glyph& glyph, double left,
                  const QRectF& rect) {
    const double width = std::max(0, glyph.left - before.right) /
                         static_cast<double>(std::max(1, glyph.spacesBefore));
    for (int index = 0; index < glyph.spacesBefore; ++index) {
        line.text += QLatin1Char(' ');
        line.characters.emplace_back(left + before.right + index * width, rect.top(), width,
                                     rect.height());
        line.characterConfidences.push_back(std::min(before.confidence, glyph.confidence));
    }
}

RecognizedLine recognizedLine(const LineImage& image, const Glyphs& glyphs) {
    RecognizedLine line;
    const double left = image.area.x();
    line.rect = QRectF(left + glyphs.front().left, image.area.y() + image.top,
                       glyphs.back().right - glyphs.front().left, image.inkHeight());
    line.confidence = meanConfidence(glyphs);
    for (size_t index = 0; index < glyphs.size(); ++index) {
        const Glyph& glyph = glyphs[index];
        if (index > 0) appendSpaces(line, glyphs[index - 1], glyph, left, line.rect);
        line.text += glyph.text;
        for (int unit = 0; unit < glyph.text.size(); ++unit) {
            line.characters.emplace_back(left + glyph.left, line.rect.top(),
                                         glyph.right - glyph.left, line.rect.height());
            line.characterConfidences.push_back(glyph.confidence);
        }
    }
    return line;
}

}  // namespace

TextEngine::TextEngine(const RecognitionFiles& files) {
    const auto runtime = std::make_shared<OnnxRuntime>(files.library);
    finder_ = std::make_unique<TextAreaFinder>(std::make_shared<OnnxModel>(
        runtime, files.finder, OnnxModel::Names{"x", "sigmoid_0.tmp_0"}, coreCount()));
    // Lines are read beside each other, each on one thread: nothing waits for the slowest part.
    reader_ = std::make_unique<LineReader>(
        std::make_shared<OnnxModel>(runtime, files.reader,
                                    OnnxModel::Names{"x", "softmax_11.tmp_0"}, 1),
        readCharacters(files.characters));
    eastAsian_ = std::make_unique<EastAsianReader>();
}

TextEngine::~TextEngine() = default;

std::vector<QRect> TextEngine::findAreas(const QImage& picture, QRect region,
                                         const std::stop_token& stop) const {
    const SearchPlan plan = searchPlan(region);
    std::vector<QRect> areas;
    for (const QRect& tile : plan.tiles) {
        const auto found = finder_->find(picture, tile, plan.scale, stop);
        std::copy_if(found.begin(), found.end(), std::back_inserter(areas),
                     [&](QRect area) { return !isCutByTile(area, tile, region); });
    }
    return joinedAreas(std::move(areas));
}

std::vector<RecognizedLine> TextEngine::read(const TextRecognitionRequest& request,
                                             const std::stop_token& stop) const {
    const QImage picture =
        request.picture.format() == QImage::Format_RGB32
            ? request.picture
            : request.picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const QRect region =
        request.region.isEmpty() ? picture.rect() : request.region.intersected(picture.rect());
    if (region.isEmpty()) return {};
    const auto areas = findAreas(picture, region, stop);
    std::vector<LineImage> images(areas.size());
    std::vector<Glyphs> readings(areas.size());
    PageLanguages page;
    page.mayBeJapanese = isAsked(request, QStringLiteral("ja"));
    page.mayBeTraditional = isAsked(request, QStringLiteral("zh-Hant"));
    forEachIndex(areas.size(), [&](size_t index) {
        if (stop.stop_requested()) throw Cancelled();
        images[index] = lineImage(picture, areas[index]);
        const bool isCut = isCutOff(images[index], region);
        readings[index] = readLine(images[index], isCut, page, stop);
    });
    dropLoneIdeographs(readings);
    std::vector<RecognizedLine> lines;
    for (size_t index = 0; index < areas.size(); ++index)
        if (!readings[index].empty())
            lines.push_back(recognizedLine(images[index], readings[index]));
    sortForReading(lines);
    return lines;
}

Glyphs TextEngine::readLine(const LineImage& image, bool isCut, PageLanguages& page,
                            const std::stop_token& stop) const {
    if (image.isEmpty()) return {};
    Glyphs glyphs = reader_->read(image, stop);
    if (isCut && meanConfidence(glyphs) < leastCutConfidence) return {};
    placeGlyphs(glyphs, image);
    glyphs = eastAsian_->improved(image, std::move(glyphs), *reader_, page, stop);
    if (glyphs.empty() || !isText(glyphs)) return {};
    correctSpelling(glyphs, image);
    return glyphs;
}

}  // namespace kestrio
