// The items of a folder, or what a filter left of them.
#pragma once

#include "desk/filter/filter.h"
#include "desk/outlook/item.h"

namespace desk {

class Items : public ModelObject<Items> {
  public:
    static constexpr std::string_view name = "Items";
    static constexpr automation::TextView default_name = u"Item";

    /// All items of a folder, as they come and go.
    Items(Desk& desk, RowId folder) : ModelObject(desk), folder_(folder) {}
    /// A selection, taken once; what is deleted later leaves it.
    Items(Desk& desk, RowId folder, std::vector<RowId> selected)
        : ModelObject(desk), folder_(folder), own_order_(std::move(selected)) {}

    static const automation::Members<Items>& members();
    std::int32_t number() const override { return object_class::items; }
    automation::Object parent() const override;
    EventInterfaces event_interfaces() const override;
    std::int32_t subscribe(const automation::Guid& interface_id, const automation::Object& sink) override;

    RowId folder() const { return folder_; }
    const std::vector<RowId>& ids();

    automation::Object at(const automation::Value& index);
    automation::Object add(const std::optional<automation::Value>& type);
    automation::Object find(const automation::Text& filter);
    automation::Object find_next();
    automation::Object restricted(const automation::Text& filter);
    automation::Object step(std::int32_t to);
    void sort(const automation::Text& property, bool descending);
    std::int32_t place = 0;  ///< of the last one that GetFirst and so on gave

  private:
    filter::Filter read(const automation::Text& text, bool for_find) const;
    /// The candidates of a filter in this collection's order, by the index where that is enough.
    std::vector<RowId> candidates(const filter::Filter& filter);
    bool matches(const filter::Filter& filter, RowId id) const;
    automation::Object next_match();

    RowId folder_;
    std::optional<std::vector<RowId>> own_order_;  ///< of a selection or after a sort
    std::int64_t departures_ = -1;  ///< the folder's, when the own order was last looked through
    std::optional<filter::Filter> search_;
    std::vector<RowId> found_;  ///< what is still to be looked at by FindNext
    std::size_t looked_at_ = 0;
};

}  // namespace desk
