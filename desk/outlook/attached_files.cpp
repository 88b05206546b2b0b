#include "desk/outlook/attached_files.h"

#include <algorithm>

namespace desk {

using automation::Text;
using automation::TextView;

namespace {

constexpr std::size_t longest_stored_name = 120;
constexpr TextView nameless = u"attachment";
constexpr TextView never_in_file_names = u"<>:\"/\\|?*";

constexpr TextView device_names[] = {u"CON", u"PRN", u"AUX", u"NUL", u"CONIN$", u"CONOUT$", u"CLOCK$"};
constexpr TextView numbered_devices[] = {u"COM", u"LPT"};

/// What the system runs, or has run, when it is opened.
constexpr TextView program_endings[] = {
    u"ade",    u"adp",     u"app",     u"appref-ms", u"bas",   u"bat",
    u"cer",    u"chm",     u"cmd",     u"com",       u"cpl",   u"crt",
    u"csh",    u"der",     u"diagcab", u"dll",       u"exe",   u"fxp",
    u"gadget", u"hlp",     u"hta",     u"inf",       u"ins",   u"isp",
    u"its",    u"jar",     u"jnlp",    u"js",        u"jse",   u"ksh",
    u"lnk",    u"mad",     u"mde",     u"mdb",       u"msc",   u"msh",
    u"msi",    u"msp",     u"mst",     u"ocx",       u"pcd",   u"pif",
    u"prf",    u"prg",     u"ps1",     u"ps2",       u"psc1",  u"py",
    u"pyw",    u"reg",     u"scf",     u"scr",       u"sct",   u"settingcontent-ms",
    u"shb",    u"shs",     u"so",      u"sys",       u"theme", u"url",
    u"vb",     u"vbe",     u"vbp",     u"vbs",       u"vhd",   u"vsmacros",
    u"vsw",    u"website", u"ws",      u"wsc",       u"wsf",   u"wsh",
    u"xbap",   u"xll",     u"xnk"};

bool is_device(TextView name) {
    const TextView stem = name.substr(0, name.find(u'.'));
    const auto is_stem = [&](TextView device) { return automation::same_ignoring_case(stem, device); };
    if (std::ranges::any_of(device_names, is_stem)) return true;
    constexpr std::size_t letters = 3;
    return stem.size() == letters + 1 && stem.back() >= u'0' && stem.back() <= u'9' &&
           std::ranges::any_of(numbered_devices, [&](TextView device) {
               return automation::same_ignoring_case(stem.substr(0, letters), device);
           });
}

}  // namespace

Text ending_of(TextView name) {
    const std::size_t dot = name.rfind(u'.');
    Text ending(dot == TextView::npos ? TextView() : name.substr(dot + 1));
    std::ranges::transform(ending, ending.begin(), [](char16_t c) { return automation::lower(c); });
    return ending;
}

Text storable_name(TextView name) {
    Text stored(name.substr(name.find_last_of(u"/\\") + 1));
    for (char16_t& c : stored) {
        if (c < u' ' || never_in_file_names.find(c) != TextView::npos) c = u'_';
    }
    const auto cut_end = [&] {  // the system leaves these out
        while (stored.ends_with(u'.') || stored.ends_with(u' ')) stored.pop_back();
    };
    cut_end();
    if (stored.size() > longest_stored_name) {
        const Text ending = ending_of(stored);
        const std::size_t kept = longest_stored_name - std::min(ending.size() + 1, longest_stored_name);
        stored = kept == 0 ? stored.substr(0, longest_stored_name) : stored.substr(0, kept) + u"." + ending;
        cut_end();
    }
    if (stored.empty()) return Text(nameless);
    return is_device(stored) ? u"_" + stored : stored;
}

Text stored_name(const AttachmentData& attachment) {
    if (!attachment.item) {
        return storable_name(attachment.file_name.empty() ? attachment.display_name : attachment.file_name);
    }
    Text subject = attachment.display_name;  // no path, whatever stands in it
    for (char16_t& c : subject) {
        if (c == u'/' || c == u'\\') c = u'_';
    }
    return storable_name((subject.empty() ? Text(nameless) : subject) + u".msg");
}

bool is_program(TextView name) {
    const Text ending = ending_of(storable_name(name));
    return std::ranges::find(program_endings, TextView(ending)) != std::end(program_endings);
}

}  // namespace desk
