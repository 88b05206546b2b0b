// Addresses of any text: what is cut out of them, and the filters that look for them.
#include "addin/createnote/new_contact.h"
#include "addin/filing/address_resolution.h"
#include "fuzz/input.h"
#include "fuzz/targets.h"

namespace {

using automation::Text;

void cut(const Text& address, bool address_is_domain) {
    const addin::createnote::Domain domain = addin::createnote::domain_of(address, address_is_domain);
    fuzz::require(domain.company.find(u".com") == Text::npos, "a company's name keeps the domain's end");
    if (domain.web_page.empty()) {
        fuzz::require(domain.company.empty(), "a company has a name and no page");
        fuzz::require(address.find(u'@') == Text::npos, "an address with a domain gives no page");
        return;
    }
    fuzz::require(address.ends_with(domain.web_page.substr(Text(u"www.").size())),
                  "a page's name is not the address's end");
    fuzz::require(domain.web_page.starts_with(u"www." + domain.company), "a company is not that of the page");
}

}  // namespace

fuzz::Seeds fuzz::address_seeds() {
    // two letters choose what is done with them
    return {"10ann@one.example\nann@one.example\nAnn Lee", "01/o=Example/cn=ann\nann@one.com\nLee, Ann",
            "12siobhan.o'brien@omalleys.com.example\n\nSiobhan O'Brien", "03@\n@.com\n'", "14one.com\n\n"};
}

bool fuzz::try_address(std::string_view bytes) {
    using addin::filing::Variant;
    constexpr Variant variants[] = {Variant::received, Variant::sent, Variant::quick_view_launch,
                                    Variant::tarnwell_launch};
    Input input(bytes);
    const bool flag = input.choice(2) == 1;
    const std::size_t variant = input.choice(std::size(variants) + 1);
    addin::filing::Addresses addresses;
    for (Text* text : {&addresses.native, &addresses.smtp, &addresses.sender_name}) *text = input.text();
    cut(addresses.native, flag);
    contact_filter(variant < std::size(variants) ? addin::filing::variant_row(variants[variant]).terms
                                                 : addin::filing::terms_of_open_contact(),
                   flag, addresses);
    return true;
}
