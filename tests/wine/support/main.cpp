// Runs the acceptance tests against the real DLL in the real desk.
#include <gtest/gtest.h>

#include <string_view>

#include "tests/wine/support/client.h"
#include "tests/wine/support/listeners.h"

int main(int count, char** arguments) {
    if (count == 2 && arguments[1] == std::string_view(wine::ListeningProcess::argument))
        return wine::ListeningProcess::run();
    testing::InitGoogleTest(&count, arguments);
    wine::client();
    return RUN_ALL_TESTS();
}
