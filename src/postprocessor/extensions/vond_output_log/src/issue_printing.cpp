#include "issue_printing.h"

#include "vond/vocabulary/tables.h"
