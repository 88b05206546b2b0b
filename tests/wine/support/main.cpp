// Runs the acceptance tests against the real DLL in the real desk.
#include <gtest/gtest.h>

#include "tests/wine/support/client.h"

int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    wine::client();
    return RUN_ALL_TESTS();
}
