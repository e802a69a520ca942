// SPDX-License-Identifier: LicenseRef-Proprietary
// The network: a program reaches this machine only, and never waits.
#include "fuzz/lua_programs/sandbox.h"
#include "fuzz/lua_programs/shell.h"

#include <arpa/inet.h>
#include <cerrno>
#include <cstdarg>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <poll.h>
#include <set>
#include <sys/select.h>
#include <sys/socket.h>
#include <unistd.h>

namespace
{

std::set<int> descriptors;

bool isThisMachine(const sockaddr *address)
{
    if (address->sa_family == AF_INET) {
        const auto *const ip = reinterpret_cast<const sockaddr_in *>(address);
        return (ntohl(ip->sin_addr.s_addr) >> 24) == 127;
    }
    if (address->sa_family == AF_INET6) {
        const auto *const ip = reinterpret_cast<const sockaddr_in6 *>(address);
        return IN6_IS_ADDR_LOOPBACK(&ip->sin6_addr);
    }
    return address->sa_family == AF_UNSPEC;
}

bool refuses(const sockaddr *address)
{
    if (!programRuns() || isThisMachine(address)) {
        return false;
    }
    errno = EACCES;
    return true;
}

bool refuses(int descriptor)
{
    if (!programRuns() || ownsDescriptor(descriptor)) {
        return false;
    }
    errno = EBADF;
    return true;
}

bool isNumeric(const char *host)
{
    in6_addr address;
    return inet_pton(AF_INET, host, &address) == 1 || inet_pton(AF_INET6, host, &address) == 1;
}

} // namespace

void ownDescriptor(int descriptor)
{
    if (descriptor != -1) {
        descriptors.insert(descriptor);
    }
}

bool ownsDescriptor(int descriptor)
{
    return descriptors.count(descriptor) != 0;
}

bool disownDescriptor(int descriptor)
{
    return descriptors.erase(descriptor) != 0;
}

void closeDescriptors()
{
    for (const int descriptor : descriptors) {
        LIBRARY_FUNCTION(close)(descriptor);
    }
    descriptors.clear();
}

extern "C" {

int socket(int domain, int type, int protocol) noexcept
{
    const int descriptor = LIBRARY_FUNCTION(socket)(domain, type, protocol);
    ownDescriptor(descriptor);
    return descriptor;
}

int accept(int descriptor, sockaddr *address, socklen_t *size)
{
    const int accepted = LIBRARY_FUNCTION(accept)(descriptor, address, size);
    ownDescriptor(accepted);
    return accepted;
}

int close(int descriptor)
{
    if (refuses(descriptor)) {
        return -1;
    }
    disownDescriptor(descriptor);
    return LIBRARY_FUNCTION(close)(descriptor);
}

int fcntl(int descriptor, int command, ...)
{
    va_list arguments;
    va_start(arguments, command);
    void *const argument = va_arg(arguments, void *);
    va_end(arguments);
    return refuses(descriptor) ? -1 : LIBRARY_FUNCTION(fcntl)(descriptor, command, argument);
}

int connect(int descriptor, const sockaddr *address, socklen_t size)
{
    return refuses(address) ? -1 : LIBRARY_FUNCTION(connect)(descriptor, address, size);
}

int bind(int descriptor, const sockaddr *address, socklen_t size) noexcept
{
    return refuses(address) ? -1 : LIBRARY_FUNCTION(bind)(descriptor, address, size);
}

ssize_t sendto(int descriptor, const void *data, std::size_t size, int flags,
               const sockaddr *address, socklen_t addressSize)
{
    if (address != nullptr && refuses(address)) {
        return -1;
    }
    return LIBRARY_FUNCTION(sendto)(descriptor, data, size, flags, address, addressSize);
}

int poll(pollfd *polled, nfds_t count, int timeout)
{
    return LIBRARY_FUNCTION(poll)(polled, count, programRuns() ? 0 : timeout);
}

int select(int count, fd_set *read, fd_set *write, fd_set *failed, timeval *timeout)
{
    timeval none = {0, 0};
    return LIBRARY_FUNCTION(select)(count, read, write, failed, programRuns() ? &none : timeout);
}

int nanosleep(const timespec *wanted, timespec *left)
{
    if (!programRuns()) {
        return LIBRARY_FUNCTION(nanosleep)(wanted, left);
    }
    if (wanted->tv_sec < 0 || wanted->tv_nsec < 0 || wanted->tv_nsec > 999999999) {
        errno = EINVAL;
        return -1;
    }
    return 0;
}

int getaddrinfo(const char *host, const char *service, const addrinfo *hints, addrinfo **found)
{
    const auto lookUp = LIBRARY_FUNCTION(getaddrinfo);
    addrinfo numeric = {};
    if (programRuns()) {
        if (hints != nullptr) {
            numeric = *hints;
        }
        numeric.ai_flags |= AI_NUMERICHOST | AI_NUMERICSERV;
        hints = &numeric;
    }
    return lookUp(host, service, hints, found);
}

int getnameinfo(const sockaddr *address, socklen_t size, char *host, socklen_t hostSize,
                char *service, socklen_t serviceSize, int flags)
{
    const int numeric = programRuns() ? NI_NUMERICHOST | NI_NUMERICSERV : 0;
    return LIBRARY_FUNCTION(getnameinfo)(address, size, host, hostSize, service, serviceSize,
                                         (flags & ~(programRuns() ? NI_NAMEREQD : 0)) | numeric);
}

hostent *gethostbyname(const char *host)
{
    if (programRuns() && !isNumeric(host)) {
        h_errno = HOST_NOT_FOUND;
        return nullptr;
    }
    return LIBRARY_FUNCTION(gethostbyname)(host);
}

hostent *gethostbyaddr(const void *address, socklen_t size, int family)
{
    if (programRuns()) {
        h_errno = HOST_NOT_FOUND;
        return nullptr;
    }
    return LIBRARY_FUNCTION(gethostbyaddr)(address, size, family);
}

} // extern "C"
