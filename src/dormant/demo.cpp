#include "dormant/demo.h"
