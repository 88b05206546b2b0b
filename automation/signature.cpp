#include "automation/signature.h"

#include <algorithm>

namespace automation::signature {

std::span<const Value> given_ones(std::span<const Value> values) {
    const auto end = std::ranges::find_if(values, &Value::is_missing);
    return values.first(static_cast<std::size_t>(end - values.begin()));
}

std::vector<Parameter> parameters(std::span<const TextView> names, std::span<const Told> told) {
    std::vector<Parameter> all;
    for (std::size_t i = 0; i < names.size(); ++i) {
        all.insert(all.end(), told[i].places, {names[i], told[i].takes, told[i].optional});
    }
    return all;
}

}  // namespace automation::signature
