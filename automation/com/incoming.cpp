#include "automation/com/incoming.h"

#include "automation/com/variant.h"

namespace windows {
namespace {

constexpr DISPID most_parameters = 256;  // far more than any member has

}  // namespace

HRESULT IncomingArguments::validate() const {
    if (parameters_.cArgs > 0 && !parameters_.rgvarg) return E_INVALIDARG;
    if (parameters_.cNamedArgs > 0 && !parameters_.rgdispidNamedArgs) return E_INVALIDARG;
    if (parameters_.cNamedArgs > parameters_.cArgs) return E_INVALIDARG;
    return S_OK;
}

void IncomingArguments::place(automation::Request& request, std::size_t at, const VARIANT& given,
                              Apartment& apartment) {
    if (request.arguments.size() <= at) request.arguments.resize(at + 1, automation::Missing{});
    automation::Value& argument = request.arguments[at];
    argument = to_value(given, apartment);
    if ((given.vt & VT_BYREF) != 0 && at < 32) {
        request.by_reference |= 1U << at;
        references_.push_back({at, &given, argument});
    }
}

void IncomingArguments::bring_into(automation::Request& request, Apartment& apartment) {
    const UINT named = parameters_.cNamedArgs;
    const std::size_t positional = parameters_.cArgs - named;
    for (std::size_t i = 0; i < positional; ++i) {
        place(request, i, parameters_.rgvarg[parameters_.cArgs - 1 - i], apartment);
    }
    const VARIANT* assigned = nullptr;
    for (UINT i = 0; i < named; ++i) {
        const DISPID id = parameters_.rgdispidNamedArgs[i];
        if (id == DISPID_PROPERTYPUT) {
            assigned = &parameters_.rgvarg[i];
            continue;
        }
        const bool free = id >= static_cast<DISPID>(positional) && id < most_parameters;
        if (!free) throw automation::Failure(automation::result::parameter_not_found);
        place(request, static_cast<std::size_t>(id), parameters_.rgvarg[i], apartment);
    }
    if (assigned) request.arguments.push_back(to_value(*assigned, apartment));
}

void IncomingArguments::write_back(const automation::Request& request, Apartment& apartment) const {
    for (const Reference& reference : references_) {
        if (reference.place >= request.arguments.size()) continue;
        const automation::Value& now = request.arguments[reference.place];
        if (now != reference.before) windows::write_back(*reference.target, now, apartment);
    }
}

}  // namespace windows
