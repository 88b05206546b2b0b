// ADO, as far as it takes to ask the desktop-search provider.
#pragma once

#include "desk/base/base.h"
#include "desk/search/search_index.h"

namespace desk {

/// Numbers of ADO's own failures (ErrorValueEnum).
namespace ado_error {
inline constexpr std::int32_t code(std::int32_t number) {
    return static_cast<std::int32_t>(0x800A0000U | static_cast<std::uint32_t>(number));
}
inline constexpr std::int32_t invalid_argument = code(3001), no_current_record = code(3021),
                              item_not_found = code(3265), object_closed = code(3704),
                              object_open = code(3705), provider_not_found = code(3706),
                              invalid_connection = code(3709);
}  // namespace ado_error

/// A connection to the provider of the desktop search. There is one only where instant search is on and the
/// provider is registered.
class AdoConnection : public ModelObject<AdoConnection> {
  public:
    static constexpr std::string_view name = "Connection";
    static constexpr automation::TextView default_name = u"ConnectionString";
    static constexpr automation::TextView prog_id = u"ADODB.Connection";
    static constexpr automation::TextView provider = u"Search.CollatorDSO";  ///< the name of its class

    using ModelObject::ModelObject;
    static const automation::Members<AdoConnection>& members();
    std::int32_t number() const override { return object_class::none; }
    automation::Object parent() const override { return {}; }

    /// Throws `provider_not_found` for a provider that isn't there, `object_open` if it is open.
    void open(const automation::Text& connection_string);
    void close();  ///< throws `object_closed` if it isn't open
    bool is_open() const { return is_open_; }

    automation::Text connection_string;

  private:
    bool is_open_ = false;
};

/// The rows of an answer, one of which is the current one. Everything but `Open` throws `object_closed` while
/// it isn't open.
class AdoRecordset : public ModelObject<AdoRecordset> {
  public:
    static constexpr std::string_view name = "Recordset";
    static constexpr automation::TextView default_name = u"Fields";
    static constexpr automation::TextView prog_id = u"ADODB.Recordset";

    using ModelObject::ModelObject;
    static const automation::Members<AdoRecordset>& members();
    std::int32_t number() const override { return object_class::none; }
    automation::Object parent() const override { return {}; }

    /// Throws `invalid_connection` for anything but an open connection.
    void open(const automation::Text& command, const std::optional<automation::Value>& connection);
    void close();
    bool is_open() const { return is_open_; }

    const FoundRows& found() const;  ///< checked for being open
    bool at_begin() const { return place_ < 0; }
    bool at_end() const;
    /// To a place counted from 0; none of a recordset without rows. Throws `no_current_record` beyond the
    /// places before the first row and behind the last one.
    void move_to(std::ptrdiff_t place);
    void move_by(std::ptrdiff_t steps) { move_to(place_ + steps); }

    std::size_t column(const automation::Value& name_or_number) const;  ///< throws `item_not_found`
    const automation::Value& value(std::size_t column) const;           ///< throws `no_current_record`

  private:
    FoundRows found_;
    std::ptrdiff_t place_ = -1;
    bool is_open_ = false;
};

/// The columns of a recordset, counted from 0.
class AdoFields : public ModelObject<AdoFields> {
  public:
    static constexpr std::string_view name = "Fields";
    static constexpr automation::TextView default_name = u"Item";

    AdoFields(Desk& desk, std::shared_ptr<AdoRecordset> owner)
        : ModelObject(desk), owner_(std::move(owner)) {}
    static const automation::Members<AdoFields>& members();
    std::int32_t number() const override { return object_class::none; }
    automation::Object parent() const override { return owner_->self(); }
    const std::shared_ptr<AdoRecordset>& owner() const { return owner_; }

  private:
    std::shared_ptr<AdoRecordset> owner_;
};

/// A column; its value is that of the current row.
class AdoField : public ModelObject<AdoField> {
  public:
    static constexpr std::string_view name = "Field";
    static constexpr automation::TextView default_name = u"Value";

    AdoField(Desk& desk, std::shared_ptr<AdoRecordset> owner, std::size_t column)
        : ModelObject(desk), column(column), owner_(std::move(owner)) {}
    static const automation::Members<AdoField>& members();
    std::int32_t number() const override { return object_class::none; }
    automation::Object parent() const override { return owner_->self(); }
    AdoRecordset& owner() const { return *owner_; }

    std::size_t column;

  private:
    std::shared_ptr<AdoRecordset> owner_;
};

}  // namespace desk
