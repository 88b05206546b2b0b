// CDO, as far as add-ins of the Outlook 2000 generation use it beside the host's own object model.
#pragma once

#include <map>

#include "desk/base/base.h"
#include "desk/store/store.h"

namespace desk {

/// What has properties by their tags: a folder, a message.
class CdoProperties {
  public:
    virtual ~CdoProperties() = default;

    // both throw `result::not_found` for a property that isn't there
    virtual automation::Value property(std::int32_t tag) const = 0;
    virtual void property(std::int32_t tag, const automation::Value& value) = 0;

    virtual automation::Object as_object() = 0;
};

/// One property by its tag. A changed value is kept when its owner is updated.
class CdoField : public ModelObject<CdoField> {
  public:
    static constexpr std::string_view name = "CDO.Field";
    static constexpr automation::TextView default_name = u"Value";

    CdoField(Desk& desk, std::shared_ptr<CdoProperties> owner, std::int32_t tag)
        : ModelObject(desk), tag(tag), owner_(std::move(owner)) {}
    static const automation::Members<CdoField>& members();
    std::int32_t number() const override { return object_class::none; }
    automation::Object parent() const override { return owner_->as_object(); }
    CdoProperties& owner() const { return *owner_; }

    std::int32_t tag;

  private:
    std::shared_ptr<CdoProperties> owner_;
};

/// The property of an owner. Throws `result::not_found` for one that isn't there.
template <class Owner>
automation::Value cdo_field(Owner& owner, std::int32_t tag) {
    owner.property(tag);
    return automation::Value(std::make_shared<CdoField>(owner.desk(), owner.shared_from_this(), tag)->self());
}

class CdoFolder : public ModelObject<CdoFolder>, public CdoProperties {
  public:
    static constexpr std::string_view name = "CDO.Folder";
    static constexpr automation::TextView default_name = u"Name";

    CdoFolder(Desk& desk, RowId folder, automation::Object session)
        : ModelObject(desk), folder_(folder), session_(std::move(session)) {}
    static const automation::Members<CdoFolder>& members();
    std::int32_t number() const override { return object_class::folder; }
    automation::Object parent() const override { return session_; }
    automation::Value property(std::int32_t tag) const override;
    void property(std::int32_t tag, const automation::Value& value) override;
    automation::Object as_object() override { return self(); }

    RowId id() const { return folder_; }
    const FolderRow& stored() const;  ///< throws `Failure` for a folder that is gone
    void update();                    ///< keeps what was changed

  private:
    std::map<std::int32_t, automation::Text> changed_;
    RowId folder_;
    automation::Object session_;
};

/// Shares the host's session; everything but `Logon` fails as long as it isn't logged on.
class CdoSession : public ModelObject<CdoSession> {
  public:
    static constexpr std::string_view name = "CDO.Session";
    static constexpr automation::TextView default_name = u"Name";

    using ModelObject::ModelObject;
    static const automation::Members<CdoSession>& members();
    std::int32_t number() const override { return object_class::none; }
    automation::Object parent() const override { return {}; }

    void check_logged_on() const;

    // both throw `result::not_found` for an id that the store has not
    automation::Object folder(const automation::Text& id, const std::optional<automation::Value>& store);
    automation::Object message(const automation::Text& id, const std::optional<automation::Value>& store);

    bool logged_on = false;
};

}  // namespace desk
