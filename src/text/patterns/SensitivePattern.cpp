#include "text/patterns/SensitivePattern.h"

namespace kestrio {

namespace {

struct PatternRow {
    SensitiveInfoType type;
    const char* name;
    const char* description;
    const char* regex;
};

// The id of a built-in pattern is its place in this table, counted from 1, so rows stay in place.
constexpr PatternRow builtInRows[] = {
    {SensitiveInfoType::email, Kestrio::marked("Email Address"),
     Kestrio::marked("Matches standard email addresses"),
     R"([a-zA-Z0-9._%+-]+@[a-zA-Z0-9.-]+\.[a-zA-Z]{2,})"},
    {SensitiveInfoType::creditCard, Kestrio::marked("Credit Card Number"),
     Kestrio::marked("Matches credit card numbers with optional separators"),
     R"(\b(?:\d[ -]*?){13,19}\b)"},
    {SensitiveInfoType::ipv4, Kestrio::marked("IPv4 Address"),
     Kestrio::marked("Matches IPv4 addresses"),
     R"(\b(?:(?:25[0-5]|2[0-4][0-9]|[01]?[0-9][0-9]?)\.){3})"
     R"((?:25[0-5]|2[0-4][0-9]|[01]?[0-9][0-9]?)\b)"},
    {SensitiveInfoType::ipv6, Kestrio::marked("IPv6 Address"),
     Kestrio::marked("Matches IPv6 addresses"),
     R"((?:[0-9a-fA-F]{1,4}:){7}[0-9a-fA-F]{1,4}|(?:[0-9a-fA-F]{1,4}:){1,7}:)"
     R"(|(?:[0-9a-fA-F]{1,4}:){1,6}:[0-9a-fA-F]{1,4})"},
    {SensitiveInfoType::apiKey, Kestrio::marked("API Key"),
     Kestrio::marked("Matches common API key formats"),
     R"(\b(?:sk_(?:live_|test_)?|pk_(?:live_|test_)?|api_|key_|token_|secret_)[a-zA-Z0-9]{20,}\b)"},
    {SensitiveInfoType::phoneNumber, Kestrio::marked("Phone Number"),
     Kestrio::marked("Matches phone numbers in various formats"),
     R"((?:\+?[0-9]{1,3}[-.\s]?)?(?:\([0-9]{2,4}\)|[0-9]{2,4})[-.\s]?[0-9]{3,4}[-.\s]?[0-9]{3,4})"},
};

struct ExampleRow {
    const char* name;
    const char* description;
    const char* regex;
};

constexpr ExampleRow exampleRows[] = {
    {Kestrio::marked("AWS Access Key"), Kestrio::marked("Matches AWS access key IDs"),
     "AKIA[0-9A-Z]{16}"},
    {Kestrio::marked("GitHub Token"), Kestrio::marked("Matches GitHub personal access tokens"),
     "gh[pousr]_[A-Za-z0-9_]{36,}"},
    {Kestrio::marked("Social Security Number"),
     Kestrio::marked("Matches US SSN format (XXX-XX-XXXX)"), R"(\b\d{3}-\d{2}-\d{4}\b)"},
    {Kestrio::marked("MAC Address"), Kestrio::marked("Matches MAC addresses"),
     "([0-9A-Fa-f]{2}[:-]){5}([0-9A-Fa-f]{2})"},
    {Kestrio::marked("JWT Token"), Kestrio::marked("Matches JSON Web Tokens"),
     R"(eyJ[A-Za-z0-9-_]+\.eyJ[A-Za-z0-9-_]+\.[A-Za-z0-9-_]+)"},
};

// Fixed ids: `family` tells the tables apart, `place` counts from 1.
QUuid tableId(ushort family, int place) {
    QUuid id;
    id.data2 = family;
    id.data4[7] = static_cast<uchar>(place);
    return id;
}

constexpr ushort builtInFamily = 0;
constexpr ushort exampleFamily = 1;

}  // namespace

std::vector<SensitivePattern> builtInPatterns() {
    std::vector<SensitivePattern> patterns;
    for (const PatternRow& row : builtInRows) {
        const QUuid id = tableId(builtInFamily, int(patterns.size()) + 1);
        patterns.push_back({id, row.type, Kestrio::tr(row.name), QString::fromLatin1(row.regex),
                            Kestrio::tr(row.description), true, true});
    }
    return patterns;
}

std::vector<ExamplePattern> examplePatterns() {
    std::vector<ExamplePattern> patterns;
    for (const ExampleRow& row : exampleRows) {
        const QUuid id = tableId(exampleFamily, int(patterns.size()) + 1);
        patterns.push_back({id, Kestrio::tr(row.name), QString::fromLatin1(row.regex),
                            Kestrio::tr(row.description)});
    }
    return patterns;
}

}  // namespace kestrio
