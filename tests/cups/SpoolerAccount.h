#pragma once

// The account the private spooler runs its filters and backends as. Started by root, cupsd drops
// to the `User` of cups-files.conf (here `lp`) for them; started by anyone else, it runs them as
// that user. Every file a filter reads (the filter program itself, its libraries, the PPD) must
// be reachable by that account, which the test checks before it starts, in a child process that
// takes on the account's identity.

#include <grp.h>
#include <pwd.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <string>

class SpoolerAccount {
  public:
    // The account of this process's spooler. `error` says why there is none (root without an
    // `lp` account); the account is then unusable.
    static SpoolerAccount Find(std::string& error) {
        SpoolerAccount account;
        account.asRoot_ = ::geteuid() == 0;
        const passwd* entry = account.asRoot_ ? ::getpwnam("lp") : ::getpwuid(::geteuid());
        if (entry == nullptr) {
            error = account.asRoot_ ? "running as root, and there is no `lp` account for cupsd "
                                      "to run the filters as"
                                    : "this process's user has no account entry";
            return account;
        }
        account.user_ = entry->pw_name;
        account.uid_ = entry->pw_uid;
        account.gid_ = entry->pw_gid;
        const group* primary = ::getgrgid(entry->pw_gid);
        account.group_ = primary != nullptr ? primary->gr_name : std::to_string(entry->pw_gid);
        return account;
    }

    bool AsRoot() const { return asRoot_; }
    const std::string& User() const { return user_; }
    const std::string& Group() const { return group_; }
    uid_t Uid() const { return uid_; }
    gid_t Gid() const { return gid_; }

    // True when the account may access `path` in `mode` (R_OK, X_OK, ...), every folder above it
    // included. As root the check runs in a child that has become the account.
    bool CanAccess(const std::string& path, int mode) const {
        if (!asRoot_) {
            return ::access(path.c_str(), mode) == 0;
        }
        const pid_t pid = ::fork();
        if (pid < 0) {
            return false;
        }
        if (pid == 0) {
            const bool became =
                ::setgroups(0, nullptr) == 0 && ::setgid(gid_) == 0 && ::setuid(uid_) == 0;
            ::_exit(became && ::access(path.c_str(), mode) == 0 ? 0 : 1);
        }
        int status = 0;
        while (::waitpid(pid, &status, 0) < 0) {
            if (errno != EINTR) {
                return false;
            }
        }
        return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }

  private:
    bool asRoot_ = false;
    std::string user_;
    std::string group_;
    uid_t uid_ = 0;
    gid_t gid_ = 0;
};
