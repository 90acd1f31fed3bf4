#pragma once

#include <csignal>
#include <cstdlib>
#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

/// A second process of a test, with the test's own files and folders.
class ChildProcess
{
public:
    /// Runs a procedure in it; `true` ends it with 0.
    template <typename Procedure> explicit ChildProcess(Procedure procedure) : number(::fork())
    {
        if (number == 0)
            ::_exit(procedure() ? 0 : 1);
    }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess() { kill(SIGKILL); }

    /// Waits for its end; the status as waitpid tells it.
    int wait()
    {
        if (number > 0)
            ::waitpid(number, &status, 0);
        number = 0;
        return status;
    }
    int kill(int signal)
    {
        if (number > 0)
            ::kill(number, signal);
        return wait();
    }

private:
    pid_t number;
    int status = 0;
};

/// True when a procedure is true in a process that has no rights of its own: as the user "nobody"
/// when the test runs as root, which may everything.
template <typename Procedure> bool asnobody(Procedure procedure)
{
    constexpr uid_t nobody = 65534;
    ChildProcess child([&] {
        if (::getuid() == 0 &&
            (::setgroups(0, nullptr) != 0 || ::setgid(nobody) != 0 || ::setuid(nobody) != 0))
            return false;
        return bool(procedure());
    });
    return child.wait() == 0;
}

/// Lets a process tell another one that it has come to a point.
class Milestone
{
public:
    Milestone()
    {
        if (::pipe(ends) != 0)
            std::abort();
    }
    Milestone(const Milestone&) = delete;
    Milestone& operator=(const Milestone&) = delete;
    ~Milestone()
    {
        ::close(ends[0]);
        ::close(ends[1]);
    }
    bool reach() const { return ::write(ends[1], "x", 1) == 1; }
    bool await() const
    {
        char byte = 0;
        return ::read(ends[0], &byte, 1) == 1;
    }

private:
    int ends[2] = {-1, -1};
};
