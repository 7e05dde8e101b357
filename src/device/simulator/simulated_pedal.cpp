#include "device/simulator/simulated_pedal.h"
