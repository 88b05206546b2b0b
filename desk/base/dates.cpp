#include "desk/base/dates.h"

#include <algorithm>
#include <chrono>
#include <vector>

namespace desk {
namespace {

using automation::ClockTime;
using automation::Text;
using automation::TextView;

bool is_digit(char16_t c) { return c >= u'0' && c <= u'9'; }

struct Piece {
    enum class Kind { number, word, colon };
    Kind kind = Kind::number;
    TextView text;
    int number = 0;
};

/// The pieces of a text: numbers, words, colons, and what stands between the parts of a date, which counts
/// for nothing. Nothing if there is a longer number than any part of a date.
std::optional<std::vector<Piece>> pieces_of(TextView text) {
    constexpr TextView between = u" \t/-.,";
    constexpr std::size_t most_digits = 4;
    std::vector<Piece> pieces;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t begin = at;
        if (is_digit(text[at])) {
            int number = 0;
            while (at < text.size() && is_digit(text[at])) {
                if (at - begin == most_digits) return std::nullopt;
                number = number * 10 + (text[at++] - u'0');
            }
            pieces.push_back({Piece::Kind::number, text.substr(begin, at - begin), number});
        } else if (text[at] == u':') {
            pieces.push_back({Piece::Kind::colon, text.substr(at++, 1)});
        } else if (between.find(text[at]) != TextView::npos) {
            ++at;
        } else {
            const TextView ends = u" \t/-,:0123456789";
            at = std::min(text.find_first_of(ends, at), text.size());
            pieces.push_back({Piece::Kind::word, text.substr(begin, at - begin)});
        }
    }
    return pieces;
}

/// A word with or without the point of an abbreviation.
bool same_word(TextView word, TextView name) {
    if (word.empty() || name.empty()) return false;
    if (word.back() == u'.' && name.back() != u'.') word.remove_suffix(1);
    return automation::same_ignoring_case(word, name);
}

template <std::size_t count>
std::optional<int> place_among(TextView word, const std::array<Text, count>& names,
                               const std::array<Text, count>& short_names) {
    for (std::size_t i = 0; i < count; ++i) {
        if (same_word(word, names[i]) || same_word(word, short_names[i])) return static_cast<int>(i);
    }
    return std::nullopt;
}

class Reader {
  public:
    Reader(std::vector<Piece> pieces, const DateManners& manners, int this_year)
        : pieces_(std::move(pieces)), manners_(manners), this_year_(this_year) {}

    std::optional<automation::Date> whole() {
        while (at_ < pieces_.size()) {
            if (!part()) return std::nullopt;
        }
        if (!date() || (!has_date_ && !has_time_)) return std::nullopt;
        return automation::to_date(clock_);
    }

  private:
    bool part() {
        const Piece& piece = pieces_[at_];
        if (piece.kind == Piece::Kind::word) return word(piece.text);
        if (piece.kind != Piece::Kind::number) return false;
        if (follows(Piece::Kind::colon) || is_half(at_ + 1)) return time();
        numbers_.push_back(piece);
        ++at_;
        return true;
    }

    bool follows(Piece::Kind kind) const { return at_ + 1 < pieces_.size() && pieces_[at_ + 1].kind == kind; }

    bool is_half(std::size_t place) const {
        return place < pieces_.size() && pieces_[place].kind == Piece::Kind::word &&
               (same_word(pieces_[place].text, manners_.morning) ||
                same_word(pieces_[place].text, manners_.evening));
    }

    /// The name of a month or weekday, or the T between the two halves of a date that programs write.
    bool word(TextView text) {
        ++at_;
        if (const auto month = place_among(text, manners_.months, manners_.short_months)) {
            if (month_ != 0) return false;
            month_ = *month + 1;
            return true;
        }
        if (place_among(text, manners_.weekdays, manners_.short_weekdays)) return true;
        return automation::same_ignoring_case(text, u"T") && numbers_.size() == 3;
    }

    bool time() {
        if (has_time_) return false;
        has_time_ = true;
        clock_.hour = pieces_[at_++].number;
        for (int* part : {&clock_.minute, &clock_.second}) {
            if (at_ == pieces_.size() || pieces_[at_].kind != Piece::Kind::colon) break;
            if (!follows(Piece::Kind::number)) return false;
            *part = pieces_[at_ + 1].number;
            at_ += 2;
        }
        constexpr int half_day = 12, day = 24, sixty = 60;
        if (is_half(at_)) {
            const bool evening = same_word(pieces_[at_++].text, manners_.evening);
            if (clock_.hour < 1 || clock_.hour > half_day) return false;
            clock_.hour = clock_.hour % half_day + (evening ? half_day : 0);
        }
        return clock_.hour < day && clock_.minute < sixty && clock_.second < sixty;
    }

    static bool is_year(const Piece& piece) {
        constexpr int last_day = 31;
        return piece.text.size() > 2 || piece.number > last_day;
    }

    bool date() {
        if (numbers_.empty()) return month_ == 0;
        has_date_ = true;
        if (month_ != 0) return named_month();
        if (numbers_.size() == 3) return three_numbers();
        return numbers_.size() == 2 && two_numbers();
    }

    bool named_month() {
        if (numbers_.size() == 1) {
            return is_year(numbers_[0]) ? set(numbers_[0].number, month_, 1)
                                        : set(this_year_, month_, numbers_[0].number);
        }
        if (numbers_.size() != 2) return false;
        const bool year_first = is_year(numbers_[0]);
        const Piece &year = numbers_[year_first ? 0 : 1], &day = numbers_[year_first ? 1 : 0];
        return set(full(year), month_, day.number);
    }

    /// The parts in the user's order, or with day and month the other way round if they can't be meant so.
    bool three_numbers() {
        const int first = numbers_[0].number, second = numbers_[1].number, third = numbers_[2].number;
        if (is_year(numbers_[0])) return set(full(numbers_[0]), second, third);
        switch (manners_.order) {
            case DateManners::Order::year_month_day:
                return set(full(numbers_[0]), second, third) || set(full(numbers_[2]), first, second);
            case DateManners::Order::day_month_year:
                return set(full(numbers_[2]), second, first) || set(full(numbers_[2]), first, second);
            default:
                return set(full(numbers_[2]), first, second) || set(full(numbers_[2]), second, first);
        }
    }

    /// Day and month of this year, or month and year.
    bool two_numbers() {
        const int first = numbers_[0].number, second = numbers_[1].number;
        if (is_year(numbers_[1])) return set(full(numbers_[1]), first, 1);
        if (is_year(numbers_[0])) return set(full(numbers_[0]), second, 1);
        const bool day_first = manners_.order == DateManners::Order::day_month_year;
        return day_first ? set(this_year_, second, first) || set(this_year_, first, second)
                         : set(this_year_, first, second) || set(this_year_, second, first);
    }

    /// Two digits stand for a year up to 2029.
    static int full(const Piece& year) {
        constexpr int last_of_this_century = 29, century = 100, this_century = 2000;
        if (year.text.size() > 2) return year.number;
        return year.number + (year.number > last_of_this_century ? this_century - century : this_century);
    }

    bool set(int year, int month, int day) {
        constexpr int first_year = 100, most_months = 12, most_days = 31;
        if (month > most_months || day > most_days) return false;  // which the calendar's types would cut off
        const std::chrono::year_month_day whole{std::chrono::year{year},
                                                std::chrono::month{static_cast<unsigned>(month)},
                                                std::chrono::day{static_cast<unsigned>(day)}};
        if (year < first_year || !whole.ok()) return false;
        clock_.year = year;
        clock_.month = month;
        clock_.day = day;
        return true;
    }

    std::vector<Piece> pieces_;
    const DateManners& manners_;
    int this_year_;
    std::size_t at_ = 0;
    std::vector<Piece> numbers_;
    int month_ = 0;
    bool has_date_ = false, has_time_ = false;
    ClockTime clock_;
};

}  // namespace

std::optional<automation::Date> read_date(TextView text, const DateManners& manners, automation::Date now) {
    std::optional<std::vector<Piece>> pieces = pieces_of(text);
    if (!pieces) return std::nullopt;
    return Reader(std::move(*pieces), manners, automation::to_clock(now).year).whole();
}

}  // namespace desk
