// The two filter languages of `Find` and `Restrict`: bracketed fields, and the @SQL form.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "host/value.h"

namespace desk::filter {

/// What a folder knows of names, asked while a filter is read.
class Names {
  public:
    virtual ~Names() = default;

    /// Whether a bracketed name is a built-in field of items or one of the folder's own fields.
    virtual bool knows(host::TextView field) const = 0;
};

/// What a filter asks of one item.
class Record {
  public:
    virtual ~Record() = default;

    /// A field by its bracketed name; the field's default value if the item has it unset, nothing if it has no such
    /// field.
    virtual std::optional<host::Value> field(host::TextView name) const = 0;

    /// A property by its schema address; nothing if the item lacks it.
    virtual std::optional<host::Value> property(host::TextView address) const = 0;
};

/// Whether words may be searched for with `ci_phrasematch` and `ci_startswith`.
enum class Words { refused, indexed };

/// One equality of a field with a text.
struct Equality {
    host::Text name;
    bool is_address = false;  ///< a schema address instead of a bracketed name
    host::Text value;
};

class Filter {
  public:
    /// Reads a filter. Throws `host::Failure` with `result::invalid_argument` and a text that says what is wrong:
    /// an unknown field, an unbalanced quote, a word that the store does not support, an empty filter.
    static Filter parse(host::TextView text, const Names& names, Words words);

    Filter(Filter&&) noexcept;
    Filter& operator=(Filter&&) noexcept;
    ~Filter();

    bool matches(const Record& record) const;

    /// Equalities of which each item that matches fulfils at least one, so that the candidates can be looked up instead
    /// of walked through; nothing if the filter has no such set.
    std::optional<std::vector<Equality>> candidates() const;

    struct Node;

  private:
    explicit Filter(std::unique_ptr<Node> root);
    std::unique_ptr<Node> root_;
};

}  // namespace desk::filter
