#pragma once

#include "text/patterns/RegularExpression.h"

namespace kestrio {

struct PhoneSearch {
    QString region;             ///< ISO code of where numbers without a country code belong
    bool joinsNumbers = false;  ///< the text's digits were put together, see ReadingForm
};

/// The region of the user's locale; "US" where it has none.
QString phoneRegion();

/// Phone numbers in a text, in its order: those that exist in the region or have a country code,
/// those with a word like "phone" before them, and those written like a number of North America,
/// where examples and films use numbers that do not exist. None that the words around them call
/// something else. Any thread.
std::vector<TextRange> phoneNumbersIn(const QString& text, const PhoneSearch& search);

/// Whether a token has as many digits as a phone number and nothing that one has not.
bool isLikePhoneNumber(const QString& text, const TextRange& token);

}  // namespace kestrio
