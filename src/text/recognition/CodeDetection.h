#pragma once

#include "text/recognition/OCRResult.h"

namespace kestrio {

/// A line of a program in a picture.
struct CodeBlock {
    QUuid id;
    QString text;
    QRectF bounds;  ///< as OCRResult::boundingBox
    std::optional<QString> language;
    int indentationLevel = 0;  ///< leading spaces and tabs, each counting as one
};

/// Whether a line looks like code. Plain on purpose: prose with "if " or "for " counts as code too,
/// since text that is left as it stands does less harm than code that was translated.
bool isCode(const QString& text);

/// The programming language that a line gives away, by its lower-case name; none for most lines.
std::optional<QString> detectLanguage(const QString& text);

/// The lines that are code, in their order.
std::vector<CodeBlock> detectCodeBlocks(const std::vector<OCRResult>& results);

}  // namespace kestrio
