#include "app/cli/OcrCommand.h"

#include "app/cli/CommandLine.h"
#include "app/cli/OcrReport.h"
#include "app/cli/StopSignals.h"
#include "app/instance/verbs/CaptureVerb.h"
#include "core/Localisation.h"
#include "core/NativePath.h"
#include "imaging/codecs/PictureLoading.h"
#include "platform/PlatformServices.h"
#include "text/recognition/OCRError.h"
#include "text/recognition/OCRService.h"

#include <unistd.h>
#include <QCommandLineParser>
#include <algorithm>
#include <cmath>

namespace kestrio {

namespace {

struct OcrOptions {
    QString input;
    std::optional<QRect> region;  // pixels
    bool isJson = false;
};

void addOcrOptions(QCommandLineParser& parser) {
    parser.setApplicationDescription(
        Kestrio::tr("Prints the text of a picture, line by line in reading order."));
    parser.addPositionalArgument(QStringLiteral("INPUT"), Kestrio::tr("a picture"));
    parser.addOption({QStringLiteral("region"),
                      Kestrio::tr("read this part of the picture only, in pixels"),
                      QStringLiteral("X,Y,W,H")});
    parser.addOption(
        {QStringLiteral("json"),
         Kestrio::tr("print the lines as JSON, with their places in pixels, how sure their reading "
                     "is, and whether they are code")});
    parser.addOption({{QStringLiteral("h"), QStringLiteral("help")}, Kestrio::tr("show help")});
}

std::optional<QRect> regionOption(const QCommandLineParser& parser) {
    if (!parser.isSet(QStringLiteral("region"))) return std::nullopt;
    const std::vector<double> numbers = regionFrom(parser.value(QStringLiteral("region")));
    const bool isWhole =
        std::ranges::all_of(numbers, [](double number) { return number == std::floor(number); });
    if (numbers.empty() || !isWhole) {
        throw UsageError(Kestrio::tr(
            "--region takes left, top, width and height in pixels, as in 100,80,800,600"));
    }
    return QRect(int(numbers[0]), int(numbers[1]), int(numbers[2]), int(numbers[3]));
}

OcrOptions parsedOptions(const QCommandLineParser& parser) {
    const QStringList inputs = parser.positionalArguments();
    if (inputs.size() != 1) throw UsageError(Kestrio::tr("name one picture to read"));
    return {inputs.front(), regionOption(parser), parser.isSet(QStringLiteral("json"))};
}

// The service would name the picture first, to find it again, which takes time at its size.
Task<std::vector<OCRResultWithConfidence>> readWhole(std::shared_ptr<OCRService> service,
                                                     Image image, std::stop_token stop) {
    auto reading = service->recognizeLines(std::move(image), std::move(stop));
    const std::vector<OCRResult> lines = co_await reading;
    co_return markedResults(lines);
}

QByteArray documentOf(const OcrOptions& options,
                      const std::vector<OCRResultWithConfidence>& results, QSize size) {
    if (options.isJson) return jsonOf(results, size);
    const QByteArray text = plainTextOf(results);
    // Scripts take the text as it is; a terminal would obey what control characters it holds.
    if (::isatty(STDOUT_FILENO) == 0) return text;
    QStringList lines = QString::fromUtf8(text).split(u'\n');
    for (QString& line : lines)
        line = printableText(line);
    return lines.join(u'\n').toUtf8();
}

Task<ExitStatus> readText(OcrOptions options, std::stop_token stop) {
    const auto service =
        std::make_shared<OCRService>(makeTextRecognizer(), OCRService::unattendedTimeout);
    // Said at once, and not after a large picture was decoded.
    if (const QString obstacle = service->obstacle(); !obstacle.isEmpty())
        throw OCRError::recognitionFailed(obstacle);
    auto loading = loadPicture(options.input);
    LoadedPicture loaded = co_await loading;
    const Image image(std::move(loaded.bitmap));
    loaded = {};
    if (stop.stop_requested()) throw Cancelled();
    const QSize size = image.pixelSize();
    std::vector<OCRResultWithConfidence> results;
    if (options.region) {
        const QRectF region = normalizedFromPixels(*options.region, size);
        auto reading = service->recognizeText(image, region, stop);
        results = co_await reading;
    } else {
        auto reading = readWhole(service, image, stop);
        results = co_await reading;
    }
    const bool isPrinted = printDocument(documentOf(options, results, size));
    co_return isPrinted ? ExitStatus::done : ExitStatus::failed;
}

}  // namespace

ExitStatus runOcr(const QStringList& arguments) {
    QCommandLineParser parser;
    addOcrOptions(parser);
    if (!parser.parse(QStringList(QStringLiteral("kestrio ocr")) + arguments))
        throw UsageError(parser.errorText());
    if (parser.isSet(QStringLiteral("help"))) {
        printHelp(parser, "ocr [options] INPUT");
        return ExitStatus::done;
    }
    const OcrOptions options = parsedOptions(parser);
    const StopSignals stopSignals;
    return runUntilDone(readText(options, stopSignals.token()));
}

}  // namespace kestrio
