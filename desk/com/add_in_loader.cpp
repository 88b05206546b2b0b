#include "desk/com/add_in_loader.h"

#include <algorithm>
#include <array>

#include "desk/office/add_ins.h"
#include "desk/outlook/application.h"

namespace desk {

using automation::Failure;
using automation::Text;
using automation::TextView;
using windows::ComPtr;
using windows::IDTExtensibility2;
namespace result = automation::result;

namespace {

constexpr const wchar_t* add_ins_key = L"Software\\Microsoft\\Office\\Outlook\\Addins";
constexpr DWORD connect_at_start = 2;  // a bit of LoadBehavior; bit 1 says connected

constexpr long after_startup = 0, at_startup = 1;  // ext_ConnectMode
constexpr long by_host_shutdown = 0, by_user = 1;  // ext_DisconnectMode

/// A registry key that is closed with its owner.
class OpenKey {
  public:
    OpenKey(HKEY root, const wchar_t* path) {
        if (RegOpenKeyExW(root, path, 0, KEY_READ, &key_) != ERROR_SUCCESS) key_ = nullptr;
    }
    ~OpenKey() {
        if (key_) RegCloseKey(key_);
    }
    OpenKey(const OpenKey&) = delete;
    OpenKey& operator=(const OpenKey&) = delete;
    HKEY get() const { return key_; }

  private:
    HKEY key_ = nullptr;
};

Text registered_text(const Text& prog_id, const wchar_t* value) {
    const Text path = Text(reinterpret_cast<const char16_t*>(add_ins_key)) + u"\\" + prog_id;
    std::array<wchar_t, 1024> buffer{};
    DWORD size = sizeof buffer;
    const LSTATUS status = RegGetValueW(HKEY_CURRENT_USER, windows::wide(path), value, RRF_RT_REG_SZ, nullptr,
                                        buffer.data(), &size);
    return status == ERROR_SUCCESS ? Text(reinterpret_cast<const char16_t*>(buffer.data())) : Text();
}

DWORD load_behavior(const Text& prog_id) {
    const Text path = Text(reinterpret_cast<const char16_t*>(add_ins_key)) + u"\\" + prog_id;
    DWORD behavior = 0;
    DWORD size = sizeof behavior;
    RegGetValueW(HKEY_CURRENT_USER, windows::wide(path), L"LoadBehavior", RRF_RT_REG_DWORD, nullptr,
                 &behavior, &size);
    return behavior;
}

std::vector<Text> registered_add_ins() {
    std::vector<Text> names;
    const OpenKey key(HKEY_CURRENT_USER, add_ins_key);
    for (DWORD i = 0; key.get(); ++i) {
        std::array<wchar_t, 256> name{};
        DWORD length = name.size();
        if (RegEnumKeyExW(key.get(), i, name.data(), &length, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS)
            break;
        names.emplace_back(windows::from_wide(name.data(), length));
    }
    return names;
}

/// Runs an operation of an add-in and logs how long it took; hosts switch off what is slow.
template <class Operation>
HRESULT timed(const AddInLoader::Log& log, TextView name, Operation&& operation) {
    LARGE_INTEGER frequency{}, before{}, after{};
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&before);
    const HRESULT outcome = operation();
    QueryPerformanceCounter(&after);
    const auto microseconds = (after.QuadPart - before.QuadPart) * 1000000 / frequency.QuadPart;
    log(Text(name) + u" " + automation::to_text(static_cast<long long>(microseconds)) + u" us, result " +
        automation::to_text(static_cast<long long>(outcome)));
    return outcome;
}

}  // namespace

void AddInLoader::enter(const Text& prog_id) {
    CLSID class_id{};
    Text guid;
    if (SUCCEEDED(CLSIDFromProgID(windows::wide(prog_id), &class_id))) {
        std::array<wchar_t, 40> spelling{};
        StringFromGUID2(class_id, spelling.data(), static_cast<int>(spelling.size()));
        guid = reinterpret_cast<const char16_t*>(spelling.data());
    }
    desk_.add_ins()->all.push_back(
        std::make_shared<AddIn>(desk_, prog_id, registered_text(prog_id, L"Description"), guid));
}

void AddInLoader::load_all() {
    const std::vector<Text> names = registered_add_ins();
    for (const Text& prog_id : names) enter(prog_id);
    for (const Text& prog_id : names) {
        if (!(load_behavior(prog_id) & connect_at_start)) continue;
        try {
            load(prog_id, at_startup);
        } catch (const Failure& failure) {
            log_(u"Add-in " + prog_id + u" was not loaded: " + failure.description());
        }
    }
    for (Loaded& loaded : loaded_) {
        timed(log_, u"OnAddInsUpdate", [&] { return loaded.add_in->OnAddInsUpdate(nullptr); });
    }
    for (Loaded& loaded : loaded_) {
        timed(log_, u"OnStartupComplete", [&] { return loaded.add_in->OnStartupComplete(nullptr); });
    }
}

void AddInLoader::load(const Text& prog_id, long mode) {
    const auto& all = desk_.add_ins()->all;
    const auto entry = std::ranges::find_if(
        all, [&](const auto& a) { return automation::same_ignoring_case(a->prog_id, prog_id); });
    if (entry == all.end()) throw Failure(result::not_found, u"There is no add-in \"" + prog_id + u"\".");
    if ((*entry)->connected) return;
    CLSID class_id{};
    if (FAILED(CLSIDFromProgID(windows::wide(prog_id), &class_id))) {
        throw Failure(result::bad_prog_id, u"its class is not registered.");
    }
    ComPtr<IDTExtensibility2> add_in;
    const HRESULT made = CoCreateInstance(class_id, nullptr, CLSCTX_INPROC_SERVER,
                                          windows::to_guid(windows::extensibility_id), add_in.put_void());
    if (FAILED(made)) {
        throw Failure(made, u"its object could not be made (" +
                                automation::to_text(static_cast<long long>(made)) + u").");
    }
    const ComPtr<IDispatch> application = apartment_->bridge(desk_.application());
    const ComPtr<IDispatch> add_in_entry = apartment_->bridge(*entry);
    (*entry)->connected = true;
    const HRESULT connected = timed(log_, u"OnConnection", [&] {
        return add_in->OnConnection(application.get(), mode, add_in_entry.get(), nullptr);
    });
    if (FAILED(connected)) {
        (*entry)->connected = false;
        throw Failure(connected, u"it refused the connection.");
    }
    loaded_.push_back({prog_id, std::move(add_in)});
}

void AddInLoader::disconnect(Loaded& loaded, long mode) {
    timed(log_, u"OnDisconnection", [&] { return loaded.add_in->OnDisconnection(mode, nullptr); });
    for (const auto& entry : desk_.add_ins()->all) {
        if (!automation::same_ignoring_case(entry->prog_id, loaded.prog_id)) continue;
        entry->connected = false;
        entry->published.reset();
    }
    loaded.add_in.reset();
}

void AddInLoader::connect(TextView prog_id, bool connect) {
    const auto found = std::ranges::find_if(
        loaded_, [&](const Loaded& l) { return automation::same_ignoring_case(l.prog_id, prog_id); });
    if (connect && found == loaded_.end()) load(Text(prog_id), after_startup);
    if (!connect && found != loaded_.end()) {
        Loaded leaving = std::move(*found);
        loaded_.erase(found);
        disconnect(leaving, by_user);
        CoFreeUnusedLibrariesEx(0, 0);
    }
}

void AddInLoader::begin_shutdown() {
    for (Loaded& loaded : loaded_) {
        timed(log_, u"OnBeginShutdown", [&] { return loaded.add_in->OnBeginShutdown(nullptr); });
    }
}

void AddInLoader::disconnect_all() {
    std::vector<Loaded> leaving = std::move(loaded_);
    loaded_.clear();
    for (Loaded& loaded : leaving) disconnect(loaded, by_host_shutdown);
}

}  // namespace desk
