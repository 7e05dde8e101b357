#include "device/kzq7306.h"
