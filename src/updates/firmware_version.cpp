#include "updates/firmware_version.h"
