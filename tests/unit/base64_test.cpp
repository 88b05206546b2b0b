// Base64, which each platform has of its own: the tests of Windows run this, too.
#include "desk/mail/base64.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(Base64, BringsBytesBackAndRefusesOtherText) {
    for (const std::string bytes : {"", "a", "ab", "abc", "abcd", "\xFF\xFE\xFD"}) {
        EXPECT_EQ(desk::mail::from_base64(desk::mail::to_base64(bytes)), bytes);
    }
    EXPECT_EQ(desk::mail::to_base64("Hallo"), "SGFsbG8=");
    for (const char* text : {"a", "ab", "abc", "a===", "ab=c", "ab c", "ab\n=", "===="}) {
        EXPECT_FALSE(desk::mail::from_base64(text)) << text;
    }
}

}  // namespace
