// Base of the stand-ins: objects whose members are in a table, and whose members can be made to fail.
#pragma once

#include "family/surroundings.h"
#include "host/automated.h"

namespace family {

/// `T` has its table, `members()`, and the name that failing members are listed under, `name`.
template <class T>
class Sibling : public host::Automated<T> {
  public:
    explicit Sibling(std::shared_ptr<Surroundings> surroundings) : surroundings_(std::move(surroundings)) {}

    host::Value invoke(host::Request& request) override {
        const host::Row<T>* row = T::members().find(request);
        if (!row) return ask_elsewhere(request);
        if (request.access != host::Access::identify) surroundings_->check(T::name, row->name);
        return host::dispatch(static_cast<T&>(*this), *row, request);
    }

    Surroundings& surroundings() const { return *surroundings_; }
    const std::shared_ptr<Surroundings>& shared_surroundings() const { return surroundings_; }

    /// Notes a call as "MainAddIn.Showlist(Document)".
    void record_call(host::TextView member, std::initializer_list<host::TextView> arguments = {}) const {
        host::Text call = host::Text(T::name) + u"." + host::Text(member);
        host::TextView separator = u"(";
        for (const host::TextView argument : arguments) {
            call += separator;
            call += argument;
            separator = u", ";
        }
        if (arguments.size() > 0) call += u")";
        surroundings_->record(std::move(call));
    }

    /// Notes the writing of a property as "MainAddIn.messageid = 00A1".
    void record_put(host::TextView member, host::TextView value) const {
        surroundings_->record(host::Text(T::name) + u"." + host::Text(member) + u" = " + host::Text(value));
    }

  protected:
    /// Answers for a member that is not in the table.
    virtual host::Value ask_elsewhere(host::Request& request) { host::throw_no_member(request); }

  private:
    std::shared_ptr<Surroundings> surroundings_;
};

}  // namespace family
