#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/integers.h"

namespace quernstoke {

// Whether a text is a number: blanks around it, a sign, digits with at most one decimal point, and
// an exponent are taken. Empty text is none.
bool isNumeric(std::string_view text);
// The number that a text says, rounded to a whole one, a half to the even neighbour. Fails with a
// type mismatch for a text that is not numeric, with an overflow for one that does not fit.
Int32 toNumber(std::string_view text);
// The number that a text says without its decimals. Fails with a type mismatch likewise.
double wholePart(std::string_view text);
// The truth that a text says: "True", "False" in any letter case, or a number. Otherwise fails
// with a type mismatch.
bool toBoolean(std::string_view text);

std::string toText(Int32 number);
std::string toText(bool truth);  // "True" or "False".

std::string lower(std::string_view text);
std::string upper(std::string_view text);
bool equalIgnoringCase(std::string_view a, std::string_view b);
// Whether `text` begins with `start`, counted in bytes of the lower-cased texts.
bool startsWithIgnoringCase(std::string_view text, std::string_view start);

// Decimal digits with the person's separator between groups of three.
std::string grouped(std::int64_t number);
// A fraction of 1 as a percentage with two decimals and the person's decimal point.
std::string percentWithTwoDecimals(float fraction);

}  // namespace quernstoke
