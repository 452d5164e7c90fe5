#include "text/recognition/CodeDetection.h"

#include <algorithm>

namespace kestrio {

namespace {

// Looked for in the lower-case text.
constexpr const char* markers[] = {
    "func ",    "def ",       "function ", "fn ",     "let ",    "var ",     "const ",   "val ",
    "if ",      "else ",      "for ",      "while ",  "switch ", "case ",    "class ",   "struct ",
    "enum ",    "interface ", "protocol ", "import ", "from ",   "#include", "require(", "->",
    "=>",       "==",         "!=",        "&&",      "||",      "(){",      "() {",     "[];",
    "= {",      "return ",    "async ",    "await ",  "try ",    "catch ",   "throw ",   ": int",
    ": string", ": bool",     ": float",   ": double"};

constexpr QLatin1String symbols("{}[]();:=<>+-*/&|!@#$%^");
constexpr double symbolShare = 0.1;
constexpr int shortestBySymbols = 6;  // characters

// Characters and not UTF-16 units.
qsizetype characterCount(const QString& text) {
    return std::ranges::count_if(text, [](QChar unit) { return !unit.isLowSurrogate(); });
}

bool isDenseInSymbols(const QString& text) {
    const qsizetype length = characterCount(text);
    if (length < shortestBySymbols) return false;
    const auto count =
        std::ranges::count_if(text, [](QChar character) { return symbols.contains(character); });
    return double(count) > symbolShare * double(length);
}

// A lower-case line that is asked about what it contains.
class Line {
  public:
    explicit Line(const QString& text) : text_(text.toLower()) {}

    template <typename... Parts>
    bool hasAny(Parts... parts) const {
        return (text_.contains(QLatin1String(parts)) || ...);
    }
    template <typename... Parts>
    bool hasAll(Parts... parts) const {
        return (text_.contains(QLatin1String(parts)) && ...);
    }

  private:
    const QString text_;
};

struct LanguageRule {
    const char* language;
    bool (*holds)(const Line&);
};

// The first that holds decides, so that broad rules stand behind narrow ones.
constexpr LanguageRule languageRules[] = {
    {"swift",
     [](const Line& line) {
         return (line.hasAny("func ") && line.hasAny("->", "@")) ||
                line.hasAny("guard ", "@objc", "@main");
     }},
    {"python", [](const Line& line) { return line.hasAll("def ", ":") && !line.hasAny("{"); }},
    {"python", [](const Line& line) { return line.hasAny("import ") && !line.hasAny(";", "{"); }},
    {"javascript",
     [](const Line& line) {
         return (line.hasAny("const ", "let ") && line.hasAny("=>")) || line.hasAny("function");
     }},
    {"typescript",
     [](const Line& line) { return line.hasAny(": string", ": number", ": boolean"); }},
    {"java",
     [](const Line& line) {
         return line.hasAny("public class ", "private ", "protected ") && line.hasAny(";");
     }},
    {"c", [](const Line& line) { return line.hasAny("#include", "int main"); }},
    {"cpp", [](const Line& line) { return line.hasAny("std::", "cout", "cin"); }},
    {"rust", [](const Line& line) { return line.hasAll("fn ", "->") || line.hasAny("let mut"); }},
    {"go", [](const Line& line) { return line.hasAll("func ", "package "); }},
};

int indentationOf(const QString& text) {
    const auto* const end = std::ranges::find_if_not(
        text, [](QChar character) { return character == u' ' || character == u'\t'; });
    return int(end - text.begin());
}

}  // namespace

bool isCode(const QString& text) {
    const QString lowered = text.toLower();
    const bool hasMarker = std::ranges::any_of(
        markers, [&](const char* marker) { return lowered.contains(QLatin1String(marker)); });
    return hasMarker || text.startsWith(QLatin1String("    ")) || text.startsWith(u'\t') ||
           isDenseInSymbols(text);
}

std::optional<QString> detectLanguage(const QString& text) {
    const Line line(text);
    const auto* const rule = std::ranges::find_if(
        languageRules, [&](const LanguageRule& each) { return each.holds(line); });
    if (rule == std::end(languageRules)) return std::nullopt;
    return QString::fromLatin1(rule->language);
}

std::vector<CodeBlock> detectCodeBlocks(const std::vector<OCRResult>& results) {
    std::vector<CodeBlock> blocks;
    for (const OCRResult& result : results) {
        if (!isCode(result.text)) continue;
        blocks.push_back({QUuid::createUuid(), result.text, result.boundingBox,
                          detectLanguage(result.text), indentationOf(result.text)});
    }
    return blocks;
}

}  // namespace kestrio
