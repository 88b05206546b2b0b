// Text as Automation knows it: UTF-16 code units, the same in the native build and in the DLL.
#pragma once

#include <string>
#include <string_view>

namespace automation {

using Text = std::u16string;
using TextView = std::u16string_view;

/// UTF-8 of a text. A lone surrogate becomes U+FFFD.
std::string to_utf8(TextView text);

/// Text of UTF-8 bytes. A malformed sequence becomes U+FFFD.
Text from_utf8(std::string_view bytes);

/// Upper and lower case of one code unit, for the letters of the Latin, Greek and Cyrillic alphabets.
char16_t upper(char16_t unit);
char16_t lower(char16_t unit);

/// A text in upper case, unit by unit.
Text upper(TextView text);

/// The form in which two texts that differ in case only are equal: lower case, unit by unit.
Text folded(TextView text);

/// Whether two texts are equal without regard to case.
bool same_ignoring_case(TextView left, TextView right);

/// Less than, equal to or greater than 0, without regard to case.
int compare_ignoring_case(TextView left, TextView right);

/// A text without the blanks (U+0020 only, as the host's own Trim) at its ends.
Text trimmed(TextView text);

/// A text with every occurrence of `what`, which is not empty, replaced.
Text replaced(TextView text, TextView what, TextView with);

/// The decimal digits of a whole number.
Text to_text(long long number);

}  // namespace automation
