#pragma once

#include <cstdlib>
#include <string>

namespace orvana::test
{

/// Sets the address of the maker's web server in the environment while this object lives.
class WebBase
{
public:
    explicit WebBase(const std::string &address) { ::setenv("ORVANA_WEB_BASE", address.c_str(), 1); }
    ~WebBase() { ::unsetenv("ORVANA_WEB_BASE"); }
    WebBase(const WebBase &) = delete;
    WebBase &operator=(const WebBase &) = delete;
};

} // namespace orvana::test
