#include "desk/setup/desk_classes.h"

#include <array>

#include "automation/com/com_ptr.h"
#include "desk/setup/registry_text.h"

namespace desk {
namespace {

using automation::Guid;
using automation::Text;
using automation::TextView;

/// A class with its name, and the name without a version if that is another one.
struct ClassRow {
    const Guid& id;
    TextView prog_id, without_version, title;
};
constexpr std::array<ClassRow, 4> classes = {{
    {application_class, u"Outlook.Application.9", u"Outlook.Application", u"Microsoft Outlook"},
    {cdo_session_class, u"MAPI.Session", {}, u"CDO session"},
    {ado_connection_class, u"ADODB.Connection", {}, u"ADODB.Connection"},
    {ado_recordset_class, u"ADODB.Recordset", {}, u"ADODB.Recordset"},
}};

// The provider of the desktop search: asked for by its name alone, so nobody serves it.
constexpr TextView search_provider = u"Search.CollatorDSO", search_title = u"Desktop search",
                   search_class = u"{9E175B8B-F52A-11D8-B9A5-505054503030}";

// Where installers look for the kind of host that is here.
constexpr TextView host_key = u"Software\\Microsoft\\Office\\16.0\\Outlook", host_kind = u"Bitness",
                   this_kind = sizeof(void*) == 8 ? u"x64" : u"x86";

void write(const Text& key, TextView text) { registry::write_text(HKEY_CLASSES_ROOT, key, {}, Text(text)); }

void write_name(TextView prog_id, TextView title, TextView class_id) {
    const Text key(prog_id);
    write(key, title);
    write(key + u"\\CLSID", class_id);
}

Text spelling(const Guid& id) {
    std::array<wchar_t, 39> text{};
    StringFromGUID2(windows::to_guid(id), text.data(), static_cast<int>(text.size()));
    return Text(windows::from_wide(text.data(), text.size() - 1));
}

Text this_program() {
    Text path(32768, u'\0');
    path.resize(GetModuleFileNameW(nullptr, reinterpret_cast<wchar_t*>(path.data()),
                                   static_cast<DWORD>(path.size())));
    return path;
}

}  // namespace

void register_classes() {
    const Text server = u"\"" + this_program() + u"\"";
    for (const ClassRow& row : classes) {
        const Text class_id = spelling(row.id);
        const Text key = u"CLSID\\" + class_id;
        write_name(row.prog_id, row.title, class_id);
        write(key, row.title);
        write(key + u"\\LocalServer32", server);
        write(key + u"\\ProgID", row.prog_id);
        if (row.without_version.empty()) continue;
        write_name(row.without_version, row.title, class_id);
        write(Text(row.without_version) + u"\\CurVer", row.prog_id);
        write(key + u"\\VersionIndependentProgID", row.without_version);
    }
    write_name(search_provider, search_title, search_class);
    registry::write_text(HKEY_LOCAL_MACHINE, Text(host_key), Text(host_kind), Text(this_kind));
}

}  // namespace desk
