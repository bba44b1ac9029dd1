#pragma once

#include <cstdlib>
#include <optional>
#include <string>

// Sets (or, with no value, removes) an environment variable for the life of the object.
class ScopedEnv {
  public:
    ScopedEnv(const char* name, std::optional<std::string> value) : name_(name) {
        if (const char* old = std::getenv(name)) {
            saved_ = old;
        }
        if (value) {
            ::setenv(name, value->c_str(), 1);
        } else {
            ::unsetenv(name);
        }
    }
    ~ScopedEnv() {
        if (saved_) {
            ::setenv(name_.c_str(), saved_->c_str(), 1);
        } else {
            ::unsetenv(name_.c_str());
        }
    }
    ScopedEnv(const ScopedEnv&) = delete;
    ScopedEnv& operator=(const ScopedEnv&) = delete;

  private:
    std::string name_;
    std::optional<std::string> saved_;
};
