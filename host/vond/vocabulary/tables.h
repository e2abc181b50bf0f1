#pragma once

#include <map>
#include <string>

#include "vond/nodelist_method.h"
#include "vond/provider/encoding.h"
#include "vond/scale_type.h"

/// The words that the host and its extensions share. Every source file that includes a vocabulary
/// header has its own copy, built in the order of definition before the library is used.
namespace vond::vocabulary {

const std::string DEFAULT_SUBCLUSTER = "default-subcluster";

const std::string ROLE_BOOT = "boot";
const std::string ROLE_COMPUTE = "compute";
const std::string ROLE_ENHANCED = "enhanced";
const std::string ROLE_EXTERNAL = "external";
const std::string ROLE_HEAD = "head";
const std::string ROLE_JOB_SCHEDULE = "job_schedule";
const std::string ROLE_LOGIN = "login";
const std::string ROLE_NETWORK_ADDRESS = "network_address";
const std::string ROLE_STORAGE = "storage";

const std::map<std::string, provider::encoding> ENCODINGS = {
    {"none", provider::encoding::none},
    {"base64", provider::encoding::base64},
    {"raw", provider::encoding::raw},
};

/// 0-based positions in the host's result database rows.
const std::map<std::string, int> COLUMN_INDICES = {
    {"rowid", 0},      {"Provider", 1},    {"Hostname", 2},          {"num_nodes", 3},
    {"node_names", 4}, {"Exit_status", 5}, {"Timestamp", 6},         {"Duration", 7},
    {"Encoding", 8},   {"STDOUT", 9},      {"STDERR", 10},           {"OptionID", 11},
    {"version", 12},   {"Username", 13},   {"Unique_timestamp", 14},
};

const std::string PROVIDER_ERROR_CODE = "provider-error-code";

/// Indexed by nodelist_method_t.
const std::string NODELIST_METHOD_NAMES[] = {"NONE", "ROTATE_RIGHT", "ROTATE_LEFT", "ROUND_ROBIN",
                                             "RANDOM"};

const std::map<std::string, nodelist_method_t> NODELIST_METHODS = {
    {"none", nodelist_method_t::none},
    {"rotate_right", nodelist_method_t::rotate_right},
    {"rotate_left", nodelist_method_t::rotate_left},
    {"round_robin", nodelist_method_t::round_robin},
    {"random", nodelist_method_t::random},
};

const std::map<std::string, ScaleType> SCALE_TYPES = {
    {"constant", ScaleType::constant},
    {"linear", ScaleType::linear},
    {"squared", ScaleType::squared},
    {"logarithmic", ScaleType::logarithmic},
};

/// Priorities in the numbering of syslog(3).
const std::map<std::string, int> LOG_LEVELS = {
    {"alert", 1},  {"critical", 2}, {"error", 3}, {"warning", 4},
    {"notice", 5}, {"info", 6},     {"debug", 7},
};

}  // namespace vond::vocabulary
