#include "platform/log.h"
