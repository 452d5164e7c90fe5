#pragma once

#include "text/patterns/RegularExpression.h"

#include <optional>

namespace kestrio {

// Each of these takes what a pattern has found in a text and gives the whole token that it lies in,
// or none where that token is something else: a version, an identifier, a number of an order.

/// An address whose host ends in a label that exists, or in one that is kept for private networks
/// and examples.
std::optional<TextRange> wholeMailAddress(const QString& text, const TextRange& hit);

/// A number of a known brand with its length, grouping and check digit (Luhn's algorithm). What
/// stands beside it within the hit, such as an expiry date, is left out.
std::optional<TextRange> wholeCardNumber(const QString& text, const TextRange& hit);

/// Four numbers that nothing marks as a version or a chapter; an IPv6 address that ends in them is
/// taken whole.
std::optional<TextRange> wholeIPv4Address(const QString& text, const TextRange& hit);

/// With its zone, without brackets, port and prefix length.
std::optional<TextRange> wholeIPv6Address(const QString& text, const TextRange& hit);

/// A key that is no identifier made of words.
std::optional<TextRange> wholeSecretKey(const QString& text, const TextRange& hit);

/// Places where an address in short form, "::" among its numbers, may be.
std::vector<TextRange> shortIPv6Candidates(const QString& text);

/// Keys as they look after a bad reading: the prefix misspelt or without its underscores, spaces
/// within. They need no more confirming.
std::vector<TextRange> misreadSecretKeys(const QString& text);

}  // namespace kestrio
