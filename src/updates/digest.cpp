#include "updates/digest.h"
