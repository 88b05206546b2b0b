// CDO, as far as add-ins of the Outlook 2000 generation use it beside the host's own object model.
#pragma once

#include <map>

#include "desk/model/base.h"
#include "desk/store/store.h"

namespace desk {

class CdoFolder;

/// One property of a folder by its tag. A changed value is kept when the folder is updated.
class CdoField : public ModelObject<CdoField> {
  public:
    static constexpr std::string_view name = "CDO.Field";
    static constexpr host::TextView default_name = u"Value";

    CdoField(Desk& desk, std::shared_ptr<CdoFolder> owner, std::int32_t tag)
        : ModelObject(desk), tag(tag), owner_(std::move(owner)) {}
    static const host::Members<CdoField>& members();
    std::int32_t number() const override { return object_class::none; }
    host::Object parent() const override;
    CdoFolder& owner() const { return *owner_; }

    std::int32_t tag;

  private:
    std::shared_ptr<CdoFolder> owner_;
};

class CdoFolder : public ModelObject<CdoFolder> {
  public:
    static constexpr std::string_view name = "CDO.Folder";
    static constexpr host::TextView default_name = u"Name";

    CdoFolder(Desk& desk, RowId folder, host::Object session)
        : ModelObject(desk), folder_(folder), session_(std::move(session)) {}
    static const host::Members<CdoFolder>& members();
    std::int32_t number() const override { return object_class::folder; }
    host::Object parent() const override { return session_; }

    RowId id() const { return folder_; }
    const FolderRow& row() const;  ///< throws `Failure` for a folder that is gone
    // all three throw `result::not_found` for a property that the folder hasn't
    host::Object field(std::int32_t tag);
    host::Text value(std::int32_t tag) const;
    void value(std::int32_t tag, const host::Text& value);
    void update();  ///< keeps what was changed

  private:
    std::map<std::int32_t, host::Text> changed_;
    RowId folder_;
    host::Object session_;
};

/// Shares the host's session; everything but `Logon` fails as long as it isn't logged on.
class CdoSession : public ModelObject<CdoSession> {
  public:
    static constexpr std::string_view name = "CDO.Session";
    static constexpr host::TextView default_name = u"Name";

    using ModelObject::ModelObject;
    static const host::Members<CdoSession>& members();
    std::int32_t number() const override { return object_class::none; }
    host::Object parent() const override { return {}; }

    void check_logged_on() const;
    host::Object folder(const host::Text& id, const host::Value& store);

    bool logged_on = false;
};

}  // namespace desk
