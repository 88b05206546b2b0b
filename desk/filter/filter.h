// The two filter languages of `Find` and `Restrict`: bracketed fields, and the @SQL form.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "automation/value.h"

namespace desk::filter {

/// What a field holds, as far as it matters for how it is compared.
enum class Content {
    anything,  ///< nobody says: each value counts as what it is
    text,
    subject,   ///< a text that may begin with a sign of an answer, which counts for nothing
    keywords,  ///< several texts, between commas
    number,
    yes_no,
    date
};

/// What is asked while a filter is read: what names the folder and the host know, and the user's clock.
class Host {
  public:
    virtual ~Host() = default;

    /// Whether a bracketed name is a built-in field of items or one of the folder's own fields.
    virtual bool knows(automation::TextView field) const = 0;

    /// Whether a field that is known may stand in a filter.
    virtual bool takes(automation::TextView field) const = 0;

    /// Whether a schema address names a property, be it one that no item bears.
    virtual bool knows_address(automation::TextView address) const = 0;

    /// What a text says as a date in the user's manner; nothing if it says none.
    virtual std::optional<automation::Date> date_of(automation::TextView text) const = 0;

    /// What a field holds, or a property by its schema address.
    virtual Content content(automation::TextView name, bool is_address) const = 0;

    /// The number that an enumeration's field has for one of its names, such as "High"; nothing if there is
    /// none.
    virtual std::optional<std::int32_t> named_number(automation::TextView name, bool is_address,
                                                     automation::TextView text) const = 0;

    virtual automation::Date now() const = 0;                           ///< the user's time
    virtual automation::Date to_utc(automation::Date local) const = 0;  ///< of a time of the user's
};

/// What a filter asks of one item.
class Record {
  public:
    virtual ~Record() = default;

    /// A field by its bracketed name; the field's default value if the item has it unset. Nothing, for an
    /// item that has no such field, compares as the empty value of what the field holds: "", 0, no, no date.
    virtual std::optional<automation::Value> field(automation::TextView name) const = 0;

    /// A property by its schema address, a date in UTC; nothing if the item lacks it. Then `Is Null` holds
    /// and nothing else.
    virtual std::optional<automation::Value> property(automation::TextView address) const = 0;
};

/// Whether words may be searched for with `ci_phrasematch` and `ci_startswith`.
enum class Words { refused, indexed };

/// One equality of a field with a text.
struct Equality {
    automation::Text name;
    bool is_address = false;  ///< a schema address instead of a bracketed name
    automation::Text value;
};

class Filter {
  public:
    /// Reads a filter. Throws `automation::Failure` with `result::invalid_argument` and a text that says what
    /// is wrong: an unknown field, an unbalanced quote, a word that the store does not support, an empty
    /// filter. The text names the character at which it stopped. Nesting beyond 200 levels is refused too.
    static Filter parse(automation::TextView text, const Host& host, Words words);

    Filter(Filter&&) noexcept;
    Filter& operator=(Filter&&) noexcept;
    ~Filter();

    /// Whether an item passes. Text compares without regard to case; a literal is turned into the type of the
    /// value that it is compared with, and where that can't be done the comparison does not hold.
    bool matches(const Record& record) const;

    /// Whether an equality can be looked up.
    using Usable = std::function<bool(const Equality&)>;

    /// Equalities, all of them usable, of which each item that matches fulfils at least one, so that the
    /// candidates can be looked up instead of walked through; nothing if the filter has no such set. Without
    /// `usable` all are. Only text values are given: an equality is a promise for fields that hold text.
    std::optional<std::vector<Equality>> candidates(const Usable& usable = {}) const;

    struct Node;

  private:
    explicit Filter(std::unique_ptr<Node> root);
    std::unique_ptr<Node> root_;
};

}  // namespace desk::filter
