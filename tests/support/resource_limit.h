// ResourceLimit: lowers a limit of the process for the life of the object. A write that passes
// RLIMIT_FSIZE fails as it does on a full disk, once SIGXFSZ is ignored.
#pragma once

#include <signal.h>
#include <sys/resource.h>

namespace brindle {

class ResourceLimit {
 public:
  ResourceLimit(int resource, rlim_t limit) : resource_(resource) {
    signal(SIGXFSZ, SIG_IGN);
    getrlimit(static_cast<__rlimit_resource>(resource_), &before_);
    rlimit lowered = before_;
    lowered.rlim_cur = limit;
    setrlimit(static_cast<__rlimit_resource>(resource_), &lowered);
  }
  ~ResourceLimit() { setrlimit(static_cast<__rlimit_resource>(resource_), &before_); }
  ResourceLimit(const ResourceLimit&) = delete;
  ResourceLimit& operator=(const ResourceLimit&) = delete;

 private:
  int resource_;
  rlimit before_{};
};

}  // namespace brindle
