// The contract's types, each by itself. abidiff compares what a library's functions take, and does
// not see these when they are the arguments of a standard template, as in the record they are.
#include "vond/analysis/analysis_output.h"
#include "vond/facts/run_facts.h"
#include "vond/fwd.h"
#include "vond/host_api.h"
#include "vond/log/error_log.h"
#include "vond/log/output_log.h"
#include "vond/nodelist_method.h"
#include "vond/postprocessor/collapsed_analysis_output.h"
#include "vond/postprocessor/postprocessor_extension.h"
#include "vond/postprocessor/severity.h"
#include "vond/provider/encoding.h"
#include "vond/scale_type.h"

namespace vond {

VOND_HOST_API void take_records(analysis::AnalysisOutput& /**/,
                                postprocessor::CollapsedAnalysisOutput& /**/,
                                postprocessor::PostprocessorExtensionData& /**/, Fwd& /**/,
                                FwdChildGroup& /**/, FwdNode& /**/, FwdHierarchy& /**/) {}

VOND_HOST_API void take_logs(log::ErrorLog& /**/, log::OutputLog& /**/,
                             log::OutputLog::Colors& /**/, log::OutputLog::OutputLogStream& /**/,
                             log::OutputStream& /**/) {}

VOND_HOST_API void take_values(postprocessor::Severity& /**/, postprocessor::Type& /**/,
                               postprocessor::TypeCode& /**/, provider::encoding& /**/,
                               nodelist_method_t& /**/, ScaleType& /**/) {}

VOND_HOST_API void take_facts(facts::Input& /**/, facts::Patterns& /**/, facts::Value& /**/,
                              facts::Place& /**/, facts::Finding& /**/,
                              facts::Acknowledgement& /**/) {}

}  // namespace vond
