#pragma once

// A spooler of the test's own: cupsd in the foreground on a free port of 127.0.0.1, with every
// folder it writes (ServerRoot, RequestRoot, TempDir, CacheDir, StateDir, the logs, the printcap)
// in a scratch folder, and a ServerBin of its own holding only what a job to a raw port needs: the
// system's `socket` backend, the system's `cups-exec` launcher, and the filters the test names, all
// as links. DataDir is the system's, for the MIME types. The machine's own spooler, its
// configuration and its spool are never read or written.
//
// The scheduler is started with fork and exec and ended by its process id: SIGTERM, then SIGKILL
// when it has not gone within ten seconds. It is also told to end when the test process dies.

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "cups/SpoolerAccount.h"
#include "cups/SpoolerPrograms.h"
#include "support/LoopbackListener.h"
#include "support/RunProgram.h"
#include "support/TempFolder.h"

class PrivateSpooler {
  public:
    using Filters = std::vector<std::pair<std::string, std::string>>;  // name, program

    PrivateSpooler(SpoolerPrograms programs, SpoolerAccount account)
        : programs_(std::move(programs)), account_(std::move(account)) {}
    ~PrivateSpooler() { Stop(); }
    PrivateSpooler(const PrivateSpooler&) = delete;
    PrivateSpooler& operator=(const PrivateSpooler&) = delete;

    // Lays out the folders and the configuration, with `filters` in ServerBin's filter folder,
    // starts cupsd and waits until it answers on its port. False, with the reason in `error`,
    // when it does not.
    bool Start(const Filters& filters, std::string& error) {
        if (!Lay(filters, error)) {
            return false;
        }
        {
            LoopbackListener free;  // the kernel's choice of a free port, handed on to cupsd
            port_ = free.Port();
        }
        WriteConfiguration();
        // Everything the child needs is made before the fork: the child only makes system calls.
        const std::string out = folder_.File("cupsd.out");
        const std::string conf = folder_.File("cupsd.conf");
        const std::string files = folder_.File("cups-files.conf");
        const char* argv[] = {programs_.cupsd.c_str(), "-f",   "-c", conf.c_str(), "-s",
                              files.c_str(),           nullptr};
        // cupsd tells the colour manager of the system bus about every queue it adds; its system
        // bus is a socket of the scratch folder that nobody serves, so the machine's bus never
        // hears of the test's queues.
        std::vector<std::string> environment{"DBUS_SYSTEM_BUS_ADDRESS=unix:path=" +
                                             folder_.File("no-bus")};
        for (char** variable = environ; *variable != nullptr; ++variable) {
            if (std::string_view(*variable).rfind("DBUS_SYSTEM_BUS_ADDRESS=", 0) != 0) {
                environment.emplace_back(*variable);
            }
        }
        std::vector<const char*> envp;
        for (const std::string& variable : environment) {
            envp.push_back(variable.c_str());
        }
        envp.push_back(nullptr);
        const pid_t pid = ::fork();
        if (pid < 0) {
            error = "cannot start cupsd";
            return false;
        }
        if (pid == 0) {
            Exec(out.c_str(), argv, envp.data());
        }
        pid_ = pid;
        return AwaitAnswer(error);
    }

    // Ends cupsd, if it runs, by its process id.
    void Stop() {
        if (pid_ <= 0) {
            return;
        }
        ::kill(pid_, SIGTERM);
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        while (!Ended() && std::chrono::steady_clock::now() < end) {
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
        if (pid_ > 0) {
            ::kill(pid_, SIGKILL);
            int status = 0;
            while (::waitpid(pid_, &status, 0) < 0 && errno == EINTR) {
            }
            pid_ = -1;
        }
    }

    // "127.0.0.1:PORT", the server the clients are given with -h.
    std::string Server() const { return "127.0.0.1:" + std::to_string(port_); }

    // Runs the client `program` (lpadmin, lp) against this spooler with `args`. Returns its exit
    // status; its standard output and error go to `output`. The clients read their configuration
    // from an empty folder of the scratch folder, not from the machine's.
    int Client(const std::string& program, const std::vector<std::string>& args,
               std::string& output) const {
        std::vector<std::string> line{program, "-h", Server()};
        line.insert(line.end(), args.begin(), args.end());
        const std::string client = folder_.File("client");
        const int status =
            RunProgram(line, folder_.Path(), folder_.File("client.out"), folder_.File("client.err"),
                       {"CUPS_SERVERROOT=" + client, "CUPS_STATEDIR=" + client, "HOME=" + client});
        output =
            ReadFileBytes(folder_.File("client.out")) + ReadFileBytes(folder_.File("client.err"));
        return status;
    }

    // cupsd's error log (at LogLevel debug), then anything it wrote to standard error.
    std::string ErrorLog() const {
        return ReadFileBytes(folder_.File("log/error_log")) +
               ReadFileBytes(folder_.File("cupsd.out"));
    }

    // True once the scheduler has logged that it stopped, aborted or cancelled a job: then no
    // plot will come.
    bool JobGivenUp() const {
        const std::string log = ReadFileBytes(folder_.File("log/error_log"));
        for (const char* phrase : {"] Job stopped", "] Stopping job", "] Job aborted",
                                   "] Job canceled", "] Aborting job"}) {
            if (log.find(phrase) != std::string::npos) {
                return true;
            }
        }
        return false;
    }

    const TempFolder& Folder() const { return folder_; }

  private:
    bool Lay(const Filters& filters, std::string& error) {
        namespace fs = std::filesystem;
        std::error_code failed;
        // Root's cupsd checks that ServerBin and everything in it belong to root and that no one
        // else may write there; the filters' user must reach the scratch folder to read its PPD
        // copy and the job's files.
        for (const char* sub : {"", "root", "spool", "spool/tmp", "cache", "state", "log", "client",
                                "settings", "bin", "bin/backend", "bin/filter", "bin/daemon"}) {
            const std::string path = folder_.File(sub);
            fs::create_directories(path, failed);
            if (failed || ::chmod(path.c_str(), 0755) != 0) {
                error = "cannot make the folder " + path;
                return false;
            }
        }
        // The filters' temporary folder: theirs to write in, as /var/spool/cups/tmp is.
        const std::string temp = folder_.File("spool/tmp");
        if (::chown(temp.c_str(), ::geteuid(), account_.Gid()) != 0 ||
            ::chmod(temp.c_str(), 01770) != 0) {
            error = "cannot make the folder " + temp + " the filters' own";
            return false;
        }
        Filters links{{"backend/socket", programs_.socketBackend},
                      {"daemon/cups-exec", programs_.cupsExec}};
        for (const auto& [name, program] : filters) {
            links.emplace_back("filter/" + name, program);
        }
        for (const auto& [name, program] : links) {
            fs::create_symlink(program, folder_.File("bin/" + name), failed);
            if (failed) {
                error = "cannot link " + program + " into the scratch ServerBin";
                return false;
            }
        }
        return true;
    }

    void WriteConfiguration() const {
        // No browsing, no web interface, no authentication: the one client is the test, over
        // the loopback interface.
        folder_.Write("cupsd.conf", "Listen 127.0.0.1:" + std::to_string(port_) +
                                        "\n"
                                        "LogLevel debug\n"
                                        "Browsing No\n"
                                        "BrowseLocalProtocols none\n"
                                        "WebInterface No\n"
                                        "DefaultAuthType None\n"
                                        "<Location />\n"
                                        "  Order allow,deny\n"
                                        "  Allow 127.0.0.1\n"
                                        "</Location>\n"
                                        "<Policy default>\n"
                                        "  <Limit All>\n"
                                        "    Order deny,allow\n"
                                        "  </Limit>\n"
                                        "</Policy>\n");
        std::string files;
        const auto line = [&files](const std::string& key, const std::string& value) {
            files += key + " " + value + "\n";
        };
        line("ServerRoot", folder_.File("root"));
        line("RequestRoot", folder_.File("spool"));
        // Inside RequestRoot, so that cupsd makes it writable by the filters' user.
        line("TempDir", folder_.File("spool/tmp"));
        line("CacheDir", folder_.File("cache"));
        line("StateDir", folder_.File("state"));
        line("ServerBin", folder_.File("bin"));
        line("ServerKeychain", folder_.File("root/ssl"));
        line("DataDir", "/usr/share/cups");
        line("DocumentRoot", "/usr/share/cups/doc-root");
        line("ErrorLog", folder_.File("log/error_log"));
        line("AccessLog", folder_.File("log/access_log"));
        line("PageLog", folder_.File("log/page_log"));
        line("Printcap", folder_.File("printcap"));
        line("FileDevice", "No");
        // The filter looks for queue settings files in an empty folder, so that none of the
        // machine's changes the plot.
        line("SetEnv VRK_CUPS_SETTINGS_DIR", folder_.File("settings"));
        if (account_.AsRoot()) {
            line("User", account_.User());
            line("Group", account_.Group());
            line("SystemGroup", "root");
        }
        folder_.Write("cups-files.conf", files);
    }

    // In the child: becomes cupsd (`argv`, `envp`), its output going to the file `out`.
    [[noreturn]] static void Exec(const char* out, const char* const* argv,
                                  const char* const* envp) {
        ::prctl(PR_SET_PDEATHSIG, SIGTERM);
        const int output = ::open(out, O_WRONLY | O_CREAT | O_TRUNC, 0644);
        const int input = ::open("/dev/null", O_RDONLY);
        if (output < 0 || input < 0 || ::dup2(input, 0) < 0 || ::dup2(output, 1) < 0 ||
            ::dup2(output, 2) < 0) {
            ::_exit(127);
        }
        ::execve(argv[0], const_cast<char* const*>(argv), const_cast<char* const*>(envp));
        ::_exit(127);
    }

    // True once cupsd has ended (and is reaped).
    bool Ended() {
        int status = 0;
        if (::waitpid(pid_, &status, WNOHANG) == pid_) {
            pid_ = -1;
            return true;
        }
        return pid_ <= 0;
    }

    // Waits up to 15 s for cupsd to accept a connection on its port.
    bool AwaitAnswer(std::string& error) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(15);
        while (std::chrono::steady_clock::now() < end) {
            if (Ended()) {
                error = "cupsd ended as it started";
                return false;
            }
            const int fd = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
            sockaddr_in address{};
            address.sin_family = AF_INET;
            address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
            address.sin_port = htons(static_cast<uint16_t>(port_));
            const bool answered =
                ::connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
            ::close(fd);
            if (answered) {
                return true;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
        error = "cupsd did not answer on " + Server() + " within 15 s";
        return false;
    }

    SpoolerPrograms programs_;
    SpoolerAccount account_;
    TempFolder folder_{"cups"};
    int port_ = 0;
    pid_t pid_ = -1;
};
