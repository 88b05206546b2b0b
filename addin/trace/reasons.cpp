#include "addin/trace/reasons.h"

#include "addin/ground/keyed.h"

namespace addin::trace {
namespace {

struct Row {
    Reason reason;
    std::string_view sentence;
};

constexpr Row rows[] = {
    {Reason::none, ""},
    {Reason::other_class, "it is no plain mail (of the class IPM.Note)"},
    {Reason::unread, "it is still unread"},
    {Reason::filed_already, "it is filed already"},
    {Reason::not_for_everybody, "it is marked as personal, private or confidential"},
    {Reason::received_filing_off,
     "option off: received mail is not to be filed (the main add-in's own switch)"},
    {Reason::sent_filing_off, "option off: sent mail is not to be filed (AutoFileSentEmails)"},
    {Reason::no_sender_address, "no address of the sender was found"},
    {Reason::no_recipients, "no recipient was found"},
    {Reason::no_recipient_address, "no address of the recipient was found"},
    {Reason::directory_filing_off,
     "option off: mail of the company's own directory is not to be filed (SaveExchangeEmail)"},
    {Reason::other_address_type,
     "the address is neither one of the Internet nor of the company's own directory"},
    {Reason::no_to_line, "no To line was found"},
    {Reason::no_contact, "no contact was found that has the address"},
};
static_assert(is_in_order(rows, &Row::reason, Reason::no_contact));

}  // namespace

std::string_view sentence(Reason reason) { return rows[static_cast<std::size_t>(reason)].sentence; }

}  // namespace addin::trace
