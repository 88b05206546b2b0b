// Objects of the outside that are watched: they do what they did, and tell of it.
#include <gtest/gtest.h>

#include "automation/watched.h"

namespace automation_tests {
namespace {

using automation::Failure;
using automation::Guid;
using automation::Invocable;
using automation::Object;
using automation::Request;
using automation::Text;
using automation::Value;
using automation::Watch;

constexpr Guid events = automation::guid("{00063077-0000-0000-C000-000000000046}");

/// Answers "Same" with itself, "Other" with another object, "Echo" with its argument, and changes what
/// "Change" is given by reference.
class Outside : public Invocable, public std::enable_shared_from_this<Outside> {
  public:
    Value invoke(Request& request) override {
        if (request.member == u"Same") return Object(shared_from_this());
        if (request.member == u"Other") return Object(std::make_shared<Outside>());
        if (request.member == u"Echo") {
            last = request.named.empty() ? request.arguments.at(0) : request.named.at(0).value;
            return last;
        }
        if (request.member == u"Change") {
            request.arguments.at(0) = Object(shared_from_this());
            return {};
        }
        throw Failure(automation::result::unknown_name, Text(request.member));
    }
    std::int32_t subscribe(const Guid&, const Object& to) override {
        sink = to;
        return 7;
    }
    void unsubscribe(const Guid&, std::int32_t cookie) override {
        EXPECT_EQ(cookie, 7);
        sink.reset();
    }

    Value last;
    Object sink;
};

class Notes : public automation::Watcher {
  public:
    void asks(const Request& request) noexcept override {
        add("asks " + automation::to_utf8(request.member));
    }
    void asked(const Request& request, const Value* answer, const Failure* failure) noexcept override {
        add("asked " + automation::to_utf8(request.member) + (answer ? " answer" : "") +
            (failure ? " failure" : ""));
    }
    void tells(const Guid& id, const Request& event) noexcept override {
        add("tells " + automation::to_utf8(event.member) + (id == events ? "" : " of another interface"));
    }
    void told() noexcept override { add("told"); }

    std::vector<std::string> texts;

  private:
    void add(std::string text) { texts.push_back(std::move(text)); }
};

class WatchedObjects : public ::testing::Test {
  protected:
    using Texts = std::vector<std::string>;
    std::shared_ptr<Notes> notes_ = std::make_shared<Notes>();
    std::shared_ptr<Watch> watch_ = Watch::create(notes_);
    std::shared_ptr<Outside> outside_ = std::make_shared<Outside>();
    Object watched_ = watch_->watched(Object(outside_));
};

TEST_F(WatchedObjects, TellOfEachCallAndHowItEnded) {
    EXPECT_EQ(watched_.call(u"Echo", {Value(u"x")}), Value(u"x"));
    EXPECT_THROW(watched_.get(u"Nowhere"), Failure);
    EXPECT_EQ(notes_->texts,
              (Texts{"asks Echo", "asked Echo answer", "asks Nowhere", "asked Nowhere failure"}));
}

TEST_F(WatchedObjects, HaveOneIdentity) {
    EXPECT_EQ(watch_->watched(Object(outside_)), watched_);
    EXPECT_EQ(watched_.get(u"Same").to_object(), watched_);
    EXPECT_EQ(watch_->watched(watched_), watched_) << "what is watched is not watched again";
    EXPECT_FALSE(watch_->watched(Object()));
}

TEST_F(WatchedObjects, GiveObjectsThatAreWatched) {
    const Object other = watched_.get(u"Other").to_object();
    notes_->texts.clear();
    other.call(u"Echo", {Value(1)});
    EXPECT_EQ(notes_->texts.size(), 2U);

    Request change{.member = u"Change", .arguments = {Value()}, .by_reference = 1};
    watched_.invoke(change);
    EXPECT_EQ(change.arguments[0].to_object(), watched_);
}

TEST_F(WatchedObjects, GoBackToTheOutsideAsTheyCame) {
    EXPECT_EQ(watched_.call(u"Echo", {Value(watched_)}).to_object(), watched_);
    EXPECT_EQ(outside_->last.to_object(), Object(outside_));
    const auto own = std::make_shared<Outside>();
    watched_.call(u"Echo", {Value(Object(own))});
    EXPECT_EQ(outside_->last.to_object(), Object(own)) << "what is not watched passes as it is";
    EXPECT_EQ(Watch::bare(Value(watched_)).to_object(), Object(outside_));

    Request named{.member = u"Echo", .named = {{u"What", Value(watched_)}}};
    watched_.invoke(named);
    EXPECT_EQ(outside_->last.to_object(), Object(outside_)) << "named arguments, too";
    outside_->last = {};  // it would hold itself
}

TEST_F(WatchedObjects, TellOfTheEventsThatComeThroughThem) {
    class Listener : public Invocable {
      public:
        explicit Listener(Object& source) : source_(source) {}
        Value invoke(Request& request) override {
            EXPECT_EQ(request.arguments.at(0).to_object(), source_) << "what it is told of is watched";
            source_.unsubscribe(events, 7);  // it may end the subscription that it came through
            request.arguments.at(0) = source_;
            return {};
        }

      private:
        Object& source_;
    };
    EXPECT_EQ(watched_.subscribe(events, Object(std::make_shared<Listener>(watched_))), 7);
    const Object sink = outside_->sink;
    Request event{.member = u"ItemChange", .arguments = {Object(outside_)}};
    sink.invoke(event);
    EXPECT_EQ(event.arguments[0].to_object(), Object(outside_));
    EXPECT_FALSE(outside_->sink);
    EXPECT_EQ(notes_->texts, (Texts{"tells ItemChange", "told"}));
}

TEST_F(WatchedObjects, HoldTheOutsideNoLongerThanTheyAreHeld) {
    const std::weak_ptr<Outside> outside = outside_;
    outside_.reset();
    EXPECT_FALSE(outside.expired());
    watched_.reset();
    EXPECT_TRUE(outside.expired());
}

}  // namespace
}  // namespace automation_tests
