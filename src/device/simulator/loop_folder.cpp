#include "device/simulator/loop_folder.h"
