#include "ui/demo.h"
