#pragma once

#include "platform/Pasteboard.h"

namespace kestrio {

/// A clipboard in memory that records what is done to it and refuses pictures or texts
/// when told to.
class MemoryPasteboard : public Pasteboard {
  public:
    bool refusesImages = false;
    bool refusesText = false;
    int clearCount = 0;

    void clearContents() override {
        ++clearCount;
        image_ = {};
        text_.clear();
        files_.clear();
    }

    bool writeImage(const QImage& image, const QByteArray&) override {
        if (refusesImages || image.isNull()) return false;
        image_ = image;
        text_.clear();
        files_.clear();
        return true;
    }

    QImage readImage() const override { return image_; }

    /// As if another program had copied files.
    void setFiles(const QStringList& paths) {
        clearContents();
        files_ = paths;
        ownsFiles_ = false;
    }

    QStringList readFiles() const override { return files_; }

    bool writeFiles(const QStringList& paths) override {
        clearContents();
        files_ = paths;
        ownsFiles_ = true;
        return true;
    }

    bool writeText(const QString& text) override {
        if (refusesText) return false;
        text_ = text;
        image_ = {};
        files_.clear();
        return true;
    }

    QString readText() const override { return text_; }
    bool ownsContents() const override { return files_.isEmpty() || ownsFiles_; }

  private:
    QImage image_;
    QString text_;
    QStringList files_;
    bool ownsFiles_ = false;
};

}  // namespace kestrio
