#include "standalone/engine/findings_reader.h"
