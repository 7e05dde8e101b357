#pragma once

#include "ctl/speech/report.h"
#include "operations/generations.h"

namespace kzq::ctl {

/// Says which backups there are, from the oldest to the newest, and what interrupted ones left.
ExitCode listBackups(const Generations& generations, Report& report);

}  // namespace kzq::ctl
