// Folders, and the collections of folders below one.
#pragma once

#include "desk/base/base.h"
#include "desk/store/store.h"

namespace desk {

inline constexpr std::int32_t deleted_items_folder = 3;  ///< number of the default folder

class Folder : public ModelObject<Folder> {
  public:
    static constexpr std::string_view name = "MAPIFolder";
    static constexpr automation::TextView default_name = u"Name";

    Folder(Desk& desk, RowId id) : ModelObject(desk), id_(id) {}
    static const automation::Members<Folder>& members();
    std::int32_t number() const override { return object_class::folder; }
    automation::Object parent() const override;

    RowId id() const { return id_; }

    /// Throws `result::object_deleted` for a folder that is gone.
    const FolderRow& stored() const;
    automation::Text path() const;  ///< "\\Store\Folder\Folder"
    void rename(const automation::Text& new_name);
    void remove();
    automation::Object copy_to(RowId target);
    void move_to(RowId target);
    void move_to(RowId target, const automation::Text& name_there);  ///< and renames it

  private:
    RowId id_;
};

/// The folder that an argument is. Throws `result::type_mismatch` for anything else.
Folder& folder_of(const automation::Value& value);

class FoldersCollection : public ModelObject<FoldersCollection> {
  public:
    static constexpr std::string_view name = "Folders";
    static constexpr automation::TextView default_name = u"Item";

    /// Those below a folder, or with 0 the stores of the profile.
    FoldersCollection(Desk& desk, RowId parent_id) : ModelObject(desk), parent_(parent_id) {}
    static const automation::Members<FoldersCollection>& members();
    std::int32_t number() const override { return object_class::folders; }
    automation::Object parent() const override;
    EventInterfaces event_interfaces() const override;
    std::int32_t subscribe(const automation::Guid& interface_id, const automation::Object& sink) override;

    std::vector<RowId> ids() const;
    automation::Object at(const automation::Value& index) const;  ///< by number from 1, or by name
    automation::Object add(const automation::Text& folder_name, const std::optional<automation::Value>& type);
    automation::Object step(std::int32_t to);  ///< the folder at that place, or Nothing
    std::int32_t place = 0;                    ///< of the last one that GetFirst and so on gave

  private:
    RowId parent_;
};

}  // namespace desk
