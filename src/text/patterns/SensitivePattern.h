#pragma once

#include "core/Json.h"

#include <vector>

namespace kestrio {

/// What kind of private data a piece of text is.
enum class SensitiveInfoType { email, creditCard, ipv4, ipv6, apiKey, phoneNumber, custom };

inline constexpr EnumTable<SensitiveInfoType, 7> sensitiveInfoTypes = {{
    {SensitiveInfoType::email, "email"},
    {SensitiveInfoType::creditCard, "creditCard"},
    {SensitiveInfoType::ipv4, "ipv4"},
    {SensitiveInfoType::ipv6, "ipv6"},
    {SensitiveInfoType::apiKey, "apiKey"},
    {SensitiveInfoType::phoneNumber, "phoneNumber"},
    {SensitiveInfoType::custom, "custom"},
}};
constexpr const auto& enumTable(SensitiveInfoType) {
    return sensitiveInfoTypes;
}

/// A regular expression, in ICU's syntax, by which private data is found.
struct SensitivePattern {
    QUuid id;
    SensitiveInfoType type = SensitiveInfoType::custom;
    QString name;
    QString regex;
    QString description;
    bool isEnabled = true;
    bool isBuiltIn = false;

    bool operator==(const SensitivePattern&) const = default;

    static constexpr auto jsonFields() {
        using P = SensitivePattern;
        return std::tuple(
            jsonField("id", &P::id), jsonField("type", &P::type), jsonField("name", &P::name),
            jsonField("regex", &P::regex), jsonField("description", &P::description),
            jsonField("isEnabled", &P::isEnabled), jsonField("isBuiltIn", &P::isBuiltIn));
    }
};

/// The patterns that everybody has, with names and descriptions in the user's language, all
/// enabled. Their ids never change.
std::vector<SensitivePattern> builtInPatterns();

/// A template for a pattern of the user's own.
struct ExamplePattern {
    QUuid id;
    QString name;
    QString regex;
    QString description;
};

/// In the user's language, in display order.
std::vector<ExamplePattern> examplePatterns();

}  // namespace kestrio
