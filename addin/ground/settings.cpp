#include "addin/ground/settings.h"

#include <cstring>

#include "addin/ground/steps.h"

namespace addin {

using automation::Text;
using automation::TextView;
using automation::Value;

std::int32_t Settings::QueryValueEx(host::KeyHandle lhKey, TextView szValueName, Value& vValue) {
    host::Registry& registry = desktop_.registry();
    const std::string name = desktop_.narrow(szValueName);
    std::uint32_t type = 0;
    std::uint32_t size = 0;
    std::int32_t status = registry.query_value(lhKey, name, type, nullptr, size);
    if (status != host::registry_status::success) return status;

    if (type == host::registry_type::text) {
        std::string buffer(size, ' ');
        status = registry.query_value(lhKey, name, type, buffer.data(), size);
        if (status == host::registry_status::success) {
            vValue = desktop_.widen(buffer.substr(0, size));
        } else {
            vValue = {};
        }
        return status;
    }
    if (type == host::registry_type::dword) {
        std::int32_t integer = 0;
        size = sizeof integer;
        status = registry.query_value(lhKey, name, type, &integer, size);
        if (status == host::registry_status::success) vValue = integer;
        return status;
    }
    return -1;
}

Value Settings::GetKeyValueEx(std::int32_t lKey, TextView sKeyName, TextView sValueName) {
    const Steps steps(observer_);
    host::KeyHandle key = host::no_key;  // stays so if the key isn't there, and the query fails by itself
    Value value;
    steps.run([&] { desktop_.registry().open_key(lKey, desktop_.narrow(sKeyName), key); });
    steps.run([&] { QueryValueEx(key, sValueName, value); });
    if (value.is(Value::Type::text)) {
        const Text text = value.to_text();
        if (!text.empty() && text.back() == u'\0') value = text.substr(0, text.size() - 1);
    }
    steps.run([&] { desktop_.registry().close_key(key); });
    return value;
}

std::int32_t Settings::SetValueEx(host::KeyHandle hKey, TextView sValueName, std::uint32_t lType,
                                  const Value& vValue) {
    host::Registry& registry = desktop_.registry();
    const std::string name = desktop_.narrow(sValueName);
    if (lType == host::registry_type::text) {
        const std::string bytes = desktop_.narrow(desktop_.text_of(vValue));
        return registry.set_value(hKey, name, lType, bytes.data(), static_cast<std::uint32_t>(bytes.size()));
    }
    if (lType == host::registry_type::dword) {
        const std::int32_t integer = vValue.to_integer();
        return registry.set_value(hKey, name, lType, &integer, sizeof integer);
    }
    return host::registry_status::success;
}

bool Settings::SetKeyValue(std::int32_t lKey, TextView sKeyName, TextView sValueName,
                           const Value& vValueSetting, std::uint32_t lValueType) {
    if (sKeyName.starts_with(u'\\')) {
        sKeyName.remove_prefix(1);  // what is left may be empty: that is the root itself
    } else if (sKeyName.empty()) {
        return false;
    }
    host::KeyHandle key = host::no_key;
    desktop_.registry().create_key(lKey, desktop_.narrow(sKeyName), key);
    const Steps steps(observer_);
    steps.run([&] { SetValueEx(key, sValueName, lValueType, vValueSetting); });
    desktop_.registry().close_key(key);
    return true;
}

Text Settings::option(TextView name) { return GetKeyValueEx(host::current_user, key_name, name).to_text(); }

void Settings::store(TextView name, TextView value) {
    SetKeyValue(host::current_user, key_name, name, Value(value), host::registry_type::text);
}

}  // namespace addin
