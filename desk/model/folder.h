// Folders, and the collections of folders below one.
#pragma once

#include "desk/model/base.h"
#include "desk/store/store.h"

namespace desk {

class Folder : public ModelObject<Folder> {
  public:
    static constexpr std::string_view name = "MAPIFolder";
    static constexpr host::TextView default_name = u"Name";

    Folder(Desk& desk, RowId id) : ModelObject(desk), id_(id) {}
    static const host::Members<Folder>& members();
    std::int32_t number() const override { return object_class::folder; }
    host::Object parent() const override;

    RowId id() const { return id_; }

    /// Throws `result::object_deleted` for a folder that is gone.
    const FolderRow& row() const;
    host::Text path() const;  ///< "\\Store\Folder\Folder"
    void rename(const host::Text& new_name);
    void remove();
    host::Object copy_to(RowId target);
    void move_to(RowId target);

  private:
    RowId id_;
};

/// The folder that an argument is. Throws `result::type_mismatch` for anything else.
Folder& folder_of(const host::Value& value);

class FoldersCollection : public ModelObject<FoldersCollection> {
  public:
    static constexpr std::string_view name = "Folders";
    static constexpr host::TextView default_name = u"Item";

    /// Those below a folder, or with 0 the stores of the profile.
    FoldersCollection(Desk& desk, RowId parent_id) : ModelObject(desk), parent_(parent_id) {}
    static const host::Members<FoldersCollection>& members();
    std::int32_t number() const override { return object_class::folders; }
    host::Object parent() const override;
    EventInterfaces event_interfaces() const override;
    host::Value invoke(host::Request& request) override;

    std::vector<RowId> ids() const;
    host::Object at(const host::Value& index) const;  ///< by number from 1, or by name
    host::Object add(const host::Text& folder_name, const host::Value& type);
    host::Object step(std::int32_t to);  ///< the folder at that place, or Nothing
    std::int32_t place = 0;              ///< of the last one that GetFirst and so on gave

  private:
    RowId parent_;
};

}  // namespace desk
