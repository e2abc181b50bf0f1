#include "standalone/engine/collapser.h"
