#include "desk/search/select_query.h"

#include <algorithm>

#include "automation/failure.h"
#include "desk/filter/patterns.h"

namespace desk {

using automation::Text;
using automation::TextView;

namespace {

[[noreturn]] void refuse(TextView what) {
    throw automation::Failure(errors_in_command, u"The command can't be read: " + Text(what));
}

bool belongs_to_name(char16_t unit) {
    return (unit >= u'0' && unit <= u'9') || (unit >= u'A' && unit <= u'Z') ||
           (unit >= u'a' && unit <= u'z') || unit == u'.' || unit == u'_';
}

class Reader {
  public:
    explicit Reader(TextView command) : rest_(command) {}

    /// A word or the name of a column.
    Text name() {
        skip_blanks();
        const auto end = std::ranges::find_if_not(rest_, belongs_to_name);
        const auto length = static_cast<std::size_t>(end - rest_.begin());
        if (length == 0) refuse(u"a name is expected.");
        return taken(length);
    }
    void word(TextView wanted) {
        if (!automation::same_ignoring_case(name(), wanted))
            refuse(u"\"" + Text(wanted) + u"\" is expected.");
    }
    bool take(char16_t sign) {
        skip_blanks();
        if (rest_.empty() || rest_.front() != sign) return false;
        rest_.remove_prefix(1);
        return true;
    }
    void sign(char16_t wanted) {
        if (!take(wanted)) refuse(u"\"" + Text(1, wanted) + u"\" is expected.");
    }
    /// What stands between apostrophes, with the doubled ones made single.
    Text literal() {
        sign(u'\'');
        Text text;
        for (;;) {
            const std::size_t end = rest_.find(u'\'');
            if (end == TextView::npos) refuse(u"an apostrophe is missing.");
            text += taken(end);
            rest_.remove_prefix(1);
            if (rest_.empty() || rest_.front() != u'\'') return text;
            text += taken(1);
        }
    }
    void end() {
        skip_blanks();
        if (!rest_.empty()) refuse(u"it goes on behind the condition.");
    }

  private:
    Text taken(std::size_t length) {
        const Text text(rest_.substr(0, length));
        rest_.remove_prefix(length);
        return text;
    }
    void skip_blanks() { rest_.remove_prefix(std::min(rest_.find_first_not_of(u" \t\r\n"), rest_.size())); }

    TextView rest_;
};

/// The words of a phrase between double quotes.
std::vector<Text> words_of_phrase(TextView searched) {
    const bool quoted = searched.size() > 2 && searched.front() == u'"' && searched.back() == u'"';
    const TextView phrase = quoted ? searched.substr(1, searched.size() - 2) : TextView();
    if (phrase.empty() || phrase.find(u'"') != TextView::npos) {
        refuse(u"a phrase between double quotes is expected.");
    }
    return filter::words_of(phrase);
}

}  // namespace

SelectQuery read_select(TextView command) {
    SelectQuery query;
    Reader reader(command);
    reader.word(u"SELECT");
    do {
        query.columns.push_back(reader.name());
    } while (reader.take(u','));
    reader.word(u"FROM");
    reader.word(u"SYSTEMINDEX");
    reader.word(u"WHERE");
    reader.word(u"CONTAINS");
    reader.sign(u'(');
    query.words = words_of_phrase(reader.literal());
    reader.sign(u')');
    reader.end();
    return query;
}

}  // namespace desk
