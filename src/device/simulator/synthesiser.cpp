#include "device/simulator/synthesiser.h"
