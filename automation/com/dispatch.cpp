#include "automation/com/dispatch.h"

#include <optional>
#include <span>

#include "automation/com/event_sink.h"
#include "automation/com/failure.h"
#include "automation/com/variant.h"

namespace windows {
namespace {

using automation::Access;
using automation::Request;
using automation::Value;

/// The arguments of one call as IDispatch takes them: in reverse order, the named ones first.
class CallArguments {
  public:
    /// `ids` has the member's id and those of the named arguments.
    CallArguments(const Request& request, std::span<const DISPID> ids, Apartment& apartment)
        : holders_(request.arguments.size()) {
        if (request.access == Access::put) {
            if (holders_.empty())
                throw automation::Failure(automation::result::bad_count, automation::Text(request.member));
            holders_.pop_back();  // the assigned value goes by itself
            row_.push_back(to_variant(request.arguments.back(), apartment));
            names_.push_back(DISPID_PROPERTYPUT);
        }
        for (std::size_t i = request.named.size(); i-- > 0;) {
            row_.push_back(to_variant(request.named[i].value, apartment));
            names_.push_back(ids[i + 1]);
        }
        for (std::size_t i = holders_.size(); i-- > 0;) {
            row_.push_back(to_variant(request.arguments[i], apartment));
            if (is_reference(request, i)) refer(i);
        }
    }

    DISPPARAMS parameters() {
        return {row_.data(), names_.data(), static_cast<UINT>(row_.size()), static_cast<UINT>(names_.size())};
    }

    /// Stores what the callee has changed in the request.
    void take_back(Request& request, Apartment& apartment) const {
        for (std::size_t i = 0; i < holders_.size(); ++i) {
            if (is_reference(request, i)) request.arguments[i] = to_value(holders_[i], apartment);
        }
    }

  private:
    static bool is_reference(const Request& request, std::size_t place) {
        return place < 32 && (request.by_reference >> place & 1) != 0;
    }

    /// Moves the last of the row, the argument at `place`, where the callee may change it. A boolean goes by
    /// reference as one: events declare it so.
    void refer(std::size_t place) {
        Variant& holder = holders_[place];
        holder = std::move(row_.back());
        VARIANT& reference = row_.back();
        if (holder.vt == VT_BOOL) {
            reference.vt = VT_BYREF | VT_BOOL;
            reference.pboolVal = &holder.boolVal;
        } else {
            reference.vt = VT_BYREF | VT_VARIANT;
            reference.pvarVal = &holder;
        }
    }

    std::vector<Variant> holders_;  // one for each positional argument
    std::vector<Variant> row_;
    std::vector<DISPID> names_;
};

/// One call of a member. The answer is empty if the object has no member of that id that can be used so.
std::optional<Value> call(IDispatch& object, const KnownMember& member, WORD flags, Request& request,
                          Apartment& apartment) {
    CallArguments arguments(request, member.ids, apartment);
    DISPPARAMS parameters = arguments.parameters();
    Variant answer;
    EXCEPINFO details{};
    UINT wrong_argument = 0;
    const bool put = request.access == Access::put;
    const HRESULT result = object.Invoke(member.ids.front(), IID_NULL, LOCALE_USER_DEFAULT, flags,
                                         &parameters, put ? nullptr : &answer, &details, &wrong_argument);
    if (result == DISP_E_MEMBERNOTFOUND) return std::nullopt;
    if (FAILED(result)) throw_reported(result, details, request.member);
    arguments.take_back(request, apartment);
    return to_value(answer, apartment);
}

/// One use of a member. For an object, the member's way of assignment is found out: by reference, or else by
/// value.
std::optional<Value> use(IDispatch& object, KnownMember& member, Request& request, Apartment& apartment) {
    if (request.access != Access::put) {
        return call(object, member, DISPATCH_METHOD | DISPATCH_PROPERTYGET, request, apartment);
    }
    const bool assigns_object =
        !request.arguments.empty() && request.arguments.back().is(Value::Type::object);
    if (!assigns_object) return call(object, member, DISPATCH_PROPERTYPUT, request, apartment);
    if (auto done = call(object, member, member.object_put, request, apartment)) return done;
    constexpr WORD both = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;
    member.object_put = both & ~member.object_put;
    return call(object, member, member.object_put, request, apartment);
}

}  // namespace

std::vector<DISPID> Adapter::ask_ids(const Request& request) {
    automation::Text member(request.member);
    std::vector<LPOLESTR> names{const_cast<wchar_t*>(wide(member))};
    for (const automation::NamedArgument& argument : request.named) {
        names.push_back(const_cast<wchar_t*>(wide(argument.name)));
    }
    std::vector<DISPID> ids(names.size(), DISPID_UNKNOWN);
    check(dispatch_->GetIDsOfNames(IID_NULL, names.data(), static_cast<UINT>(names.size()),
                                   LOCALE_USER_DEFAULT, ids.data()),
          request.member);
    return ids;
}

std::optional<automation::MemberIds> Adapter::identify(automation::TextView member,
                                                       std::span<const automation::Text> parameters) {
    const automation::Text own(member);
    std::vector<LPOLESTR> names{const_cast<wchar_t*>(wide(own))};
    for (const automation::Text& parameter : parameters)
        names.push_back(const_cast<wchar_t*>(wide(parameter)));
    std::vector<DISPID> ids(names.size(), DISPID_UNKNOWN);
    const HRESULT result = dispatch_->GetIDsOfNames(IID_NULL, names.data(), static_cast<UINT>(names.size()),
                                                    LOCALE_USER_DEFAULT, ids.data());
    if (result == DISP_E_UNKNOWNNAME && ids.front() == DISPID_UNKNOWN) return std::nullopt;
    if (result != DISP_E_UNKNOWNNAME) check(result, member);
    return automation::MemberIds{.id = ids.front(), .places = {ids.begin() + 1, ids.end()}};
}

/// Where a member's id is remembered: for the whole class, or for this object alone where an id of one class
/// could reach an object of another.
MemberTable& Adapter::shared_members(const Request& request) {
    if (!request.kind) return own_members_;
    if (kind_ != request.kind) {
        class_ = &apartment_->dispatch_ids().of(*request.kind, *dispatch_.get());
        kind_ = request.kind;
    }
    const bool shared = class_->told || DispatchIds::shared_by_all(*kind_, request.member);
    return shared ? class_->members : own_members_;
}

Value Adapter::invoke(Request& request) {
    if (request.id != automation::no_id && request.named.empty()) {
        KnownMember member{.ids = {request.id}};
        if (auto answer = use(*dispatch_.get(), member, request, *apartment_)) return std::move(*answer);
        throw_result(DISP_E_MEMBERNOTFOUND, request.member);
    }
    if (request.member.empty()) throw automation::Failure(automation::result::no_named_arguments);

    MemberTable& shared = shared_members(request);
    const KnownMember* known = own_members_.find(request);
    const bool own = known != nullptr;
    if (!known) known = shared.find(request);
    const bool guessed = known != nullptr;
    KnownMember member = guessed ? *known : KnownMember{.ids = ask_ids(request)};
    if (!guessed) shared.remember(request, member);

    const WORD way = member.object_put;
    auto answer = use(*dispatch_.get(), member, request, *apartment_);
    if (answer && member.object_put != way) (own ? own_members_ : shared).remember(request, member);
    if (!answer && guessed) {
        // An object may be of a kind and still have ids of its own: it is asked, and it alone is remembered.
        KnownMember fresh{.ids = ask_ids(request)};
        if (fresh.ids != member.ids) {
            answer = use(*dispatch_.get(), fresh, request, *apartment_);
            if (answer) own_members_.remember(request, std::move(fresh));
        }
    }
    if (!answer) throw_result(DISP_E_MEMBERNOTFOUND, request.member);
    return std::move(*answer);
}

HRESULT Adapter::find_connection_point(const automation::Guid& interface_id,
                                       ComPtr<IConnectionPoint>& point) const {
    const auto container = dispatch_.as<IConnectionPointContainer>(IID_IConnectionPointContainer);
    if (!container) return CONNECT_E_NOCONNECTION;
    const HRESULT result = container->FindConnectionPoint(to_guid(interface_id), point.put());
    return SUCCEEDED(result) && !point ? CONNECT_E_NOCONNECTION : result;
}

ComPtr<IConnectionPoint> Adapter::connection_point(const automation::Guid& interface_id) const {
    ComPtr<IConnectionPoint> point;
    check(find_connection_point(interface_id, point));
    return point;
}

bool Adapter::has_events(const automation::Guid& interface_id) {
    ComPtr<IConnectionPoint> point;
    return SUCCEEDED(find_connection_point(interface_id, point));
}

std::int32_t Adapter::subscribe(const automation::Guid& interface_id, const automation::Object& sink) {
    const ComPtr<IConnectionPoint> point = connection_point(interface_id);
    if (!sink) throw automation::Failure(automation::result::invalid_argument, u"No sink");
    const ComPtr<IDispatch> receiver = EventSink::create(apartment_, sink.target(), interface_id);
    DWORD cookie = 0;
    check(point->Advise(receiver.get(), &cookie));
    return static_cast<std::int32_t>(cookie);
}

void Adapter::unsubscribe(const automation::Guid& interface_id, std::int32_t cookie) {
    check(connection_point(interface_id)->Unadvise(static_cast<DWORD>(cookie)));
}

}  // namespace windows
