// Base of the stand-ins: objects whose members are in a table, and whose members can be made to fail.
#pragma once

#include "automation/automated.h"
#include "family/context.h"

namespace family {

/// `T` has its table, `members()`, and the name that failing members are listed under, `name`.
template <class T>
class Sibling : public automation::Automated<T> {
  public:
    explicit Sibling(std::shared_ptr<Context> context) : context_(std::move(context)) {}

    automation::Value invoke(automation::Request& request) override {
        const automation::Row<T>* row = T::members().find(request);
        if (!row) return ask_elsewhere(request);
        context_->check(T::name, row->name);
        return automation::dispatch(static_cast<T&>(*this), *row, request);
    }

    Context& context() const { return *context_; }
    const std::shared_ptr<Context>& shared_context() const { return context_; }

    /// Notes a call as "MainAddIn.Showlist(Document)".
    void record_call(automation::TextView member,
                     std::initializer_list<automation::TextView> arguments = {}) const {
        automation::Text call = automation::Text(T::name) + u"." + automation::Text(member);
        automation::TextView separator = u"(";
        for (const automation::TextView argument : arguments) {
            call += separator;
            call += argument;
            separator = u", ";
        }
        if (arguments.size() > 0) call += u")";
        context_->record(std::move(call));
    }

    /// Notes the writing of a property as "MainAddIn.messageid = 00A1".
    void record_put(automation::TextView member, automation::TextView value) const {
        context_->record(automation::Text(T::name) + u"." + automation::Text(member) + u" = " +
                         automation::Text(value));
    }

  protected:
    /// Answers for a member that is not in the table.
    virtual automation::Value ask_elsewhere(automation::Request& request) {
        automation::throw_no_member(request);
    }

  private:
    std::shared_ptr<Context> context_;
};

}  // namespace family
