// Mails for a long session.
#pragma once

#include <cstddef>
#include <iterator>

namespace acceptance {

/// A mail for the contact that `add_contact` adds.
struct MailOfMany {
    const char* from;
    const char* more;
    bool is_filed;
};

/// The mails come in this order, over and over: half of them from a known sender.
inline const MailOfMany& mail_of_many(int number) {
    static constexpr MailOfMany mails[] = {
        {"Ann Lee <ann.lee@northmill.example>", "", true},
        {"Nobody <nobody@elsewhere.example>", "", false},
        {"Ann Lee <ann.lee@northmill.example>", "X-Desk-Sensitivity: 2\n", false},
        {"Nobody <nobody@elsewhere.example>", "X-Desk-Sensitivity: 3\n", false},
        {"ANN.LEE@NORTHMILL.EXAMPLE", "", true},
        {"ann.lee@northmill.example.elsewhere.example", "", false},
    };
    return mails[static_cast<std::size_t>(number) % std::size(mails)];
}

}  // namespace acceptance
