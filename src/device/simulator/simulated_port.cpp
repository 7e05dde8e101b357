#include "device/simulator/simulated_port.h"
