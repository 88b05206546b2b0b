// The host's five operations, for both ways of calling them.
#pragma once

#include "addin/connect/connect.h"
#include "addin/server/server.h"

namespace windows {

/// Runs the operations. A handler that fails leaves silently: the host is told nothing of it. By name they
/// have the interface's own dispatch ids.
class Lifecycle final : public automation::Automated<Lifecycle> {
  public:
    Lifecycle(std::shared_ptr<Load> load, std::shared_ptr<addin::Connect> connect)
        : load_(std::move(load)), connect_(std::move(connect)) {}

    static const automation::Members<Lifecycle>& members();

    void on_connection(const automation::Object& application, std::int32_t mode,
                       const automation::Object& add_in);
    void on_disconnection(std::int32_t mode);
    void on_add_ins_update();
    void on_startup_complete();
    void on_begin_shutdown();

  private:
    std::shared_ptr<Load> load_;
    std::shared_ptr<addin::Connect> connect_;
};

}  // namespace windows
