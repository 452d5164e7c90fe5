#include "core/Json.h"
#include "core/Parallel.h"
#include "imaging/codecs/ImageDecoder.h"
#include "imaging/codecs/ImageEncoder.h"

#include <gtest/gtest.h>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <csignal>

// Runs the real program as a user's shell would.

namespace kestrio {
namespace {

struct Outcome {
    int status;
    std::string output;
    std::string errors;
};

auto lines(const std::string& text) {
    return std::count(text.begin(), text.end(), '\n');
}

bool holds(const std::string& text, const char* part) {
    return text.find(part) != std::string::npos;
}

class RenderCommand : public testing::Test {
  protected:
    QTemporaryDir folder;

    void SetUp() override {
        // QProcess starts programs from a child that shares this thread's memory, after which
        // ThreadSanitizer has lost track of the thread's locks; so the thread decodes alone.
        setParallelThreadLimit(1);
        QImage picture(60, 40, QImage::Format_RGB32);
        picture.fill(QColor(200, 30, 30));
        write("shot.png", encodeImage(picture, ExportFormat::png));
    }

    void write(const char* name, const QByteArray& bytes) const {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    QString path(const char* name) const { return folder.filePath(QString::fromUtf8(name)); }

    std::unique_ptr<QProcess> started(const char* arguments) const {
        auto process = std::make_unique<QProcess>();
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), folder.path());
        environment.insert(QStringLiteral("HOME"), folder.path());
        for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            environment.remove(QString::fromLatin1(name));
        process->setProcessEnvironment(environment);
        process->setWorkingDirectory(folder.path());
        process->start(QStringLiteral(KESTRIO_PROGRAM),
                       QProcess::splitCommand(QString::fromUtf8(arguments)));
        return process;
    }

    Outcome run(const char* arguments) const {
        const auto process = started(arguments);
        EXPECT_TRUE(process->waitForFinished(120000)) << arguments;
        EXPECT_EQ(process->exitStatus(), QProcess::NormalExit) << arguments;
        return {process->exitCode(), process->readAllStandardOutput().toStdString(),
                process->readAllStandardError().toStdString()};
    }
};

TEST_F(RenderCommand, WritesThePictureInEveryFormat) {
    for (const char* name : {"out.png", "out.jpg", "out.webp"}) {
        const QByteArray arguments = QByteArray("render shot.png --preset ocean -o ") + name;
        const Outcome outcome = run(arguments.constData());
        EXPECT_EQ(outcome.status, 0) << outcome.errors;
        EXPECT_TRUE(outcome.output.empty() && outcome.errors.empty()) << outcome.errors;
        EXPECT_EQ(loadImageFile(path(name)).size(), QSize(60, 40));
    }
}

TEST_F(RenderCommand, LaterOptionsOverrideEarlierOnes) {
    struct Row {
        const char* options;
        QRgb corner;
    };
    const Row rows[] = {
        {"--backdrop solid:#00ff00 --padding 10", qRgb(0, 255, 0)},
        {"--backdrop solid:#00ff00 --preset clean --shadow off", qRgb(255, 255, 255)},
        {"--preset clean --shadow off --backdrop solid:#00ff00", qRgb(0, 255, 0)},
        {"--backdrop none --shadow off --padding 5", 0},
    };
    for (const Row& row : rows) {
        const QByteArray arguments = QByteArray("render shot.png -o out.png ") + row.options;
        EXPECT_EQ(run(arguments.constData()).status, 0);
        EXPECT_EQ(loadImageFile(path("out.png")).pixel(0, 0), row.corner) << row.options;
    }
}

TEST_F(RenderCommand, SizesFollowDensityCanvasAspectAndRotation) {
    struct Row {
        const char* options;
        QSize size;
    };
    const Row rows[] = {
        {"", {60, 40}},
        {"--density 2", {60, 40}},
        {"--aspect 1:1", {60, 60}},
        {"--canvas 100x90 --density 2", {200, 180}},
        {"--aspect 1:1 --canvas 100x90", {100, 90}},
        {"--rotate 90", {40, 60}},
    };
    for (const Row& row : rows) {
        const QByteArray arguments = QByteArray("render shot.png -o out.png ") + row.options;
        EXPECT_EQ(run(arguments.constData()).status, 0);
        EXPECT_EQ(loadImageFile(path("out.png")).size(), row.size) << row.options;
    }
}

TEST_F(RenderCommand, TellsWhatItWroteAsJson) {
    QDir(folder.path()).mkdir(QStringLiteral("into"));
    write("broken.png", "\x89PNG\r\n");
    const Outcome outcome = run("render shot.png broken.png shot.png -o into --format png --json");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(lines(outcome.errors), 1) << outcome.errors;
    const JsonValue document = parseJson(QByteArray::fromStdString(outcome.output));
    ASSERT_EQ(document["outputs"].size(), 2u);
    ASSERT_EQ(document["failures"].size(), 1u);
    const JsonValue& second = document["outputs"][1];
    EXPECT_EQ(second["path"], "into/shot_002.png");
    EXPECT_EQ(second["width"], 60);
    EXPECT_EQ(second["bytes"], QFile(path("into/shot_002.png")).size());
    for (const char* stage : {"load", "compose", "encode", "write"}) {
        EXPECT_GE(second["milliseconds"][stage].get<double>(), 0);
    }
}

TEST_F(RenderCommand, StylesComeFromFiles) {
    write("style.json",
          R"({"backdrop":{"type":"solid","solidColor":{"red":0,"green":0,"blue":1,"alpha":1},
        "opacity":1,"padding":8,"effects":{"blur":0,"noise":0,"saturation":100}},
        "mockup":{"cornerRadius":12,"shadowEnabled":false,"shadowIntensity":"low","lightSource":"top"},
        "frameStyle":"none"})");
    EXPECT_EQ(run("render shot.png --style style.json -o out.png").status, 0);
    EXPECT_EQ(loadImageFile(path("out.png")).pixel(0, 0), qRgb(0, 0, 255));
}

TEST_F(RenderCommand, QuickSavesUnderTheSettingsPattern) {
    QDir(folder.path()).mkpath(QStringLiteral("kestrio"));
    write("kestrio/kestrio.ini",
          QByteArray("[General]\ncom.kestrio.appSettings=\"{\\\"defaultSavePath\\\":\\\"") +
              folder.path().toUtf8() + "\\\",\\\"fileNamingPattern\\\":\\\"quick\\\"}\"\n");
    EXPECT_EQ(run("render shot.png --quick-save --format png").output,
              "Saved to " + path("quick.png").toStdString() + "\n");
    EXPECT_EQ(run("render shot.png --quick-save --format png").output,
              "Saved to " + path("quick_002.png").toStdString() + "\n");
}

TEST_F(RenderCommand, BadInputEndsWithOneLineThatSaysWhy) {
    write("empty.png", "");
    write("text.png", "this is no picture");
    QFile whole(path("shot.png"));
    ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
    write("half.png", whole.read(whole.size() / 2));
    write("broken.json", "{\"backdrop\":");
    write("wrong.json", "{\"backdrop\":{\"type\":5}}");
    struct Row {
        const char* arguments;
        int status;
        const char* says;
    };
    const Row rows[] = {
        {"render missing.png -o out.png", 1, "missing.png"},
        {"render empty.png -o out.png", 1, "empty"},
        {"render text.png -o out.png", 1, "text.png"},
        {"render half.png -o out.png", 1, "half.png"},
        {"render . -o out.png", 1, "directory"},
        {"render shot.png -o no/such/out.png", 1, "no/such"},
        {"render shot.png -o /dev/full --format png", 1, "No space left"},
        {"render shot.png --style missing.json -o out.png", 1, "missing.json"},
        {"render shot.png --style broken.json -o out.png", 1, "line 1"},
        {"render shot.png --style wrong.json -o out.png", 1, "backdrop.type"},
        {"render shot.png --backdrop image:text.png -o out.png", 1, "picture"},
        {"render shot.png --canvas 20000x20 -o out.webp", 1, "rendering failed"},
        {"render shot.png --canvas 900000x900000 -o out.png", 1, "rendering failed"},
        {"render shot.png", 2, "-o OUTPUT"},
        {"render", 2, "name a picture"},
        {"render missing.png", 1, "missing.png"},
        {"render missing.png -o no/such/out.png", 1, "missing.png"},
        {"render -o out.png", 2, "name a picture"},
        {"render shot.png -o out.bmp", 2, "--format"},
        {"render shot.png -o out.png --preset sea", 2, "clean, dark, sunset"},
        {"render shot.png -o out.png --frame gnome", 2, "macOS, safari"},
        {"render shot.png -o out.png --pattern plaid", 2, "circles, waves"},
        {"render shot.png -o out.png --overlay fog", 2, "vignette"},
        {"render shot.png -o out.png --light sun", 2, "topLeft"},
        {"render shot.png -o out.png --shadow deep", 2, "off, low, medium, high"},
        {"render shot.png -o out.png --backdrop solid:#12", 2, "#RRGGBB"},
        {"render shot.png -o out.png --backdrop gradient:sea", 2, "ocean"},
        {"render shot.png -o out.png --padding wide", 2, "--padding"},
        {"render shot.png -o out.png --padding nan", 2, "--padding"},
        {"render shot.png -o out.png --aspect 16:0", 2, "--aspect"},
        {"render shot.png -o out.png --canvas 10", 2, "--canvas"},
        {"render shot.png -o out.png --density 0", 2, "--density"},
        {"render shot.png -o out.png --format gif", 2, "png, jpeg, webp"},
        {"render shot.png -o out.png --sparkle", 2, "sparkle"},
        {"render shot.png shot.png -o out.png", 2, "folder"},
        {"render shot.png -o ./shot.png", 2, "overwritten"},
        {"polish shot.png", 2, "render"},
    };
    for (const Row& row : rows) {
        const Outcome outcome = run(row.arguments);
        EXPECT_EQ(outcome.status, row.status) << row.arguments << ": " << outcome.errors;
        EXPECT_EQ(lines(outcome.errors), 1) << row.arguments << ": " << outcome.errors;
        EXPECT_TRUE(holds(outcome.errors, row.says)) << row.arguments << ": " << outcome.errors;
        EXPECT_TRUE(outcome.output.empty()) << row.arguments;
        for (const char* left : {"out.png", "out.webp", "out.bmp"}) {
            EXPECT_FALSE(QFile::exists(path(left))) << row.arguments;
        }
    }
}

TEST_F(RenderCommand, InterruptingItLeavesNothingBehind) {
    // Many seconds of work for the WebP encoder; the signal comes while it is at it.
    const auto process =
        started("render " KESTRIO_SOURCE_DIR
                "/tests/support/pictures/dashboard-4k.png --canvas 6000x3400 -o out.webp");
    ASSERT_TRUE(process->waitForStarted());
    ASSERT_FALSE(process->waitForFinished(1500));
    ::kill(static_cast<pid_t>(process->processId()), SIGINT);
    ASSERT_TRUE(process->waitForFinished(60000));
    EXPECT_EQ(process->exitCode(), 3);
    EXPECT_TRUE(process->readAllStandardError().isEmpty());
    EXPECT_FALSE(QFile::exists(path("out.webp")));
}

TEST_F(RenderCommand, HelpAndVersionAreToldOnStandardOutput) {
    EXPECT_TRUE(holds(run("--help").output, "render"));
    EXPECT_TRUE(holds(run("render --help").output, "--frame-scale"));
    for (const char* option : {"--version", "-v"})
        EXPECT_TRUE(holds(run(option).output, "kestrio ")) << option;
    EXPECT_TRUE(holds(run("-h").output, "-v, --version"));
}

TEST_F(RenderCommand, EveryVerbTellsItsOptionsWithoutADisplay) {
    for (const char* verb : {"edit", "capture", "render"})
        for (const char* option : {" --help", " -h"}) {
            const Outcome outcome = run((std::string(verb) + option).c_str());
            EXPECT_EQ(outcome.status, 0) << verb << ": " << outcome.errors;
            EXPECT_EQ(outcome.output.find(std::string("usage: kestrio ") + verb), 0u)
                << outcome.output;
        }
    EXPECT_EQ(run("edit -- --help").status, 1) << "a file's name";
}

}  // namespace
}  // namespace kestrio
