#pragma once

#include <cstdlib>
#include <string>

namespace orvana::test
{

/// The maker's web server while it lives, as the user's environment names it.
class WebBase
{
public:
    explicit WebBase(const std::string &address) { ::setenv("ORVANA_WEB_BASE", address.c_str(), 1); }
    ~WebBase() { ::unsetenv("ORVANA_WEB_BASE"); }
    WebBase(const WebBase &) = delete;
    WebBase &operator=(const WebBase &) = delete;
};

} // namespace orvana::test
