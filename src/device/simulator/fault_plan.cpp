#include "device/simulator/fault_plan.h"
