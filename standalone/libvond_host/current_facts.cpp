#include "standalone/libvond_host/current_facts.h"

namespace vond::standalone {

ReportFacts& report_facts() {
  static ReportFacts facts;
  return facts;
}

}  // namespace vond::standalone
