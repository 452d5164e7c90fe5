#pragma once

#include <QSize>

#include "core/Error.h"

namespace kestrio {

/// Every reason why bytes or a file do not become a picture.
class ImageLoadError : public Error {
  public:
    enum class Case {
        unreadable,
        empty,
        unsupportedFormat,
        damaged,
        tooLarge,
    };

    /// `reason` is the operating system's text, such as "No such file or directory".
    static ImageLoadError unreadable(QString path, QString reason);
    static ImageLoadError empty() { return ImageLoadError(Case::empty); }
    static ImageLoadError unsupportedFormat() { return ImageLoadError(Case::unsupportedFormat); }
    /// A sound picture of a supported format in a kind that is not: `kind` is a noun with its
    /// article.
    static ImageLoadError unsupportedKind(QString kind);
    /// `reason` is the decoder's text.
    static ImageLoadError damaged(QString reason);
    /// `claimed` is the size in pixels that the picture's header states.
    static ImageLoadError tooLarge(QSize claimed);

    Case errorCase() const { return case_; }
    /// The file that could not be read; empty in the other cases.
    const QString& path() const { return path_; }
    /// Why, for unreadable and damaged, and the kind of unsupportedKind(); empty in the other
    /// cases.
    const QString& reason() const { return reason_; }
    /// In pixels, for tooLarge; invalid in the other cases.
    QSize claimedSize() const { return claimed_; }

    QString errorDescription() const override;

  private:
    explicit ImageLoadError(Case errorCase) : case_(errorCase) {}

    Case case_;
    QString path_;
    QString reason_;
    QSize claimed_;
};

}  // namespace kestrio
