// The names that a note takes from a record, by the record's kind.
#pragma once

#include <optional>

#include "addin/ground/session.h"
#include "addin/host/outlook.h"
#include "addin/records/names.h"

namespace addin::createnote {

/// Which of a record's values are the note's names; an empty one stays unset.
struct NamesRow {
    records::Name message_class;  ///< empty: any other
    records::Name account_name, contact_name, opportunity_name;
};

/// Finds out what a record is when the first of its names is asked for.
class RecordNames {
  public:
    RecordNames(const Session& session, const host::outlook::Item& record)
        : session_(session), record_(record) {}

    /// The note's name; nothing if it stays unset.
    std::optional<automation::Value> read(records::Name property);

  private:
    void look();

    const Session& session_;
    const host::outlook::Item& record_;
    bool is_known_ = false;
    const NamesRow* row_ = nullptr;  ///< none for a contact, which has fields for its names
};

}  // namespace addin::createnote
