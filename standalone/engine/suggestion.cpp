#include "standalone/engine/suggestion.h"
