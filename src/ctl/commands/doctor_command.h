#pragma once

#include "ctl/commands/command.h"

namespace kzq::ctl {

/// Shows what keeps the user from using the pedal, without opening it, and the commands that fix it.
class DoctorCommand : public Command {
  public:
    explicit DoctorCommand(Context context) : context_(std::move(context)) {}

    bool withoutPedal() override;
    void connected(const std::shared_ptr<KZQ7306>& /*looper*/) override {}
    void disconnected() override {}
    void cancel() override {}

  private:
    void show(const std::vector<Finding>& findings) const;

    Context context_;
};

}  // namespace kzq::ctl
