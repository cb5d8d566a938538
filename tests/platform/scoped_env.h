// Sets or unsets an environment variable for one scope and puts the old value
// back afterwards, so that tests sharing a process do not see each other's.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

class ScopedEnv {
public:
    // value null: the variable is unset for the scope.
    ScopedEnv(const char* name, const char* value) : name_(name) {
        if (const char* old = std::getenv(name)) old_ = old;
        if (value)
            setenv(name, value, 1);
        else
            unsetenv(name);
    }
    ScopedEnv(const char* name, const std::string& value) : ScopedEnv(name, value.c_str()) {}
    ~ScopedEnv() {
        if (old_)
            setenv(name_.c_str(), old_->c_str(), 1);
        else
            unsetenv(name_.c_str());
    }
    ScopedEnv(const ScopedEnv&) = delete;
    ScopedEnv& operator=(const ScopedEnv&) = delete;

private:
    std::string name_;
    std::optional<std::string> old_;
};
