// Objects of COM, asked by name.
#pragma once

#include "automation/com/apartment.h"

namespace windows {

/// Offers an IDispatch to the inside. A member access is one call of the object's Invoke once the id is
/// known: from the table of the object's class, or else from the object's own.
class Adapter final : public automation::Invocable {
  public:
    Adapter(std::shared_ptr<Apartment> apartment, ComPtr<IDispatch> dispatch)
        : apartment_(std::move(apartment)), dispatch_(std::move(dispatch)) {}
    ~Adapter() override { apartment_->remove(*this); }

    automation::Value invoke(automation::Request& request) override;
    std::optional<automation::MemberIds> identify(automation::TextView member,
                                                  std::span<const automation::Text> parameters) override;
    bool has_events(const automation::Guid& interface_id) override;
    std::int32_t subscribe(const automation::Guid& interface_id, const automation::Object& sink) override;
    void unsubscribe(const automation::Guid& interface_id, std::int32_t cookie) override;

    const ComPtr<IDispatch>& dispatch() const { return dispatch_; }

  private:
    MemberTable& shared_members(const automation::Request& request);
    std::vector<DISPID> ask_ids(const automation::Request& request);
    /// Where the object is connected to for the events of an interface; CONNECT_E_NOCONNECTION if it has
    /// none.
    HRESULT find_connection_point(const automation::Guid& interface_id,
                                  ComPtr<IConnectionPoint>& point) const;
    ComPtr<IConnectionPoint> connection_point(const automation::Guid& interface_id) const;  ///< or throws

    std::shared_ptr<Apartment> apartment_;
    ComPtr<IDispatch> dispatch_;
    MemberTable own_members_;
    const automation::Kind* kind_ = nullptr;  ///< as which it was seen last
    ClassMembers* class_ = nullptr;           ///< what is known of the class, seen so
};

}  // namespace windows
