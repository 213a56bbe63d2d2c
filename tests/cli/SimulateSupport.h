#pragma once
// What the simulator's command-line tests share: programs started in the
// background and ended with the test (also when it fails), a pseudo-terminal
// read on its own thread, and gpsd's JSON reports over TCP.
#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <pty.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace ortelix::simcli {

// A program running beside the test; stopped and reaped when it goes.
class Child {
public:
    Child(const std::vector<std::string>& argv, const std::string& log, const std::vector<std::string>& env = {}) {
        pid_ = ::fork();
        if (pid_ == 0) {
            const int fd = ::open(log.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
            if (fd >= 0) {
                ::dup2(fd, 1);
                ::dup2(fd, 2);
            }
            for (const std::string& e : env) ::putenv(const_cast<char*>(e.c_str()));
            std::vector<char*> args;
            for (const std::string& a : argv) args.push_back(const_cast<char*>(a.c_str()));
            args.push_back(nullptr);
            ::execvp(args[0], args.data());
            ::_exit(127);
        }
    }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    ~Child() { stop(); }

    // The exit code once it ended by itself within `seconds` (looked at
    // least once); -1 otherwise.
    int wait(double seconds) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
        while (pid_ > 0) {
            int status = 0;
            if (::waitpid(pid_, &status, WNOHANG) == pid_) {
                pid_ = -1;
                code_ = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
                return code_;
            }
            if (std::chrono::steady_clock::now() >= end) break;
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
        return pid_ > 0 ? -1 : code_;
    }
    bool running() {
        wait(0);
        return pid_ > 0;
    }
    void stop() {
        if (pid_ <= 0) return;
        ::kill(pid_, SIGTERM);
        if (wait(2) == -1 && pid_ > 0) {
            ::kill(pid_, SIGKILL);
            ::waitpid(pid_, nullptr, 0);
        }
        pid_ = -1;
    }

private:
    pid_t pid_ = -1;
    int code_ = -1;
};

// A pseudo-terminal whose other end is read on a thread into `text`.
class PtyReader {
public:
    PtyReader() {
        char name[256] = {};
        // The test holds the other end open too, so that the master does not
        // hang up between programs that open it by name.
        if (::openpty(&master_, &slave_, name, nullptr, nullptr) != 0) return;
        name_ = name;
        thread_ = std::thread([this] {
            char buf[1024];
            while (!done_) {
                pollfd p{master_, POLLIN, 0};
                if (::poll(&p, 1, 50) <= 0) continue;
                const ssize_t n = ::read(master_, buf, sizeof buf);
                if (n <= 0) continue;
                std::lock_guard<std::mutex> lock(m_);
                text_.append(buf, static_cast<size_t>(n));
            }
        });
    }
    ~PtyReader() {
        done_ = true;
        if (thread_.joinable()) thread_.join();
        if (master_ >= 0) ::close(master_);
        if (slave_ >= 0) ::close(slave_);
    }
    const std::string& name() const { return name_; }
    std::string text() {
        std::lock_guard<std::mutex> lock(m_);
        return text_;
    }

private:
    int master_ = -1, slave_ = -1;
    std::string name_;
    std::thread thread_;
    std::atomic<bool> done_{false};
    std::mutex m_;
    std::string text_;
};

// A TCP port on the loopback that no one listens on now.
inline int FreePort() {
    const int s = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in a{};
    a.sin_family = AF_INET;
    a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    ::bind(s, reinterpret_cast<sockaddr*>(&a), sizeof a);
    socklen_t len = sizeof a;
    ::getsockname(s, reinterpret_cast<sockaddr*>(&a), &len);
    ::close(s);
    return ntohs(a.sin_port);
}

// A connection to gpsd's JSON port, line by line.
class GpsdClient {
public:
    // Tries to connect for up to `seconds`.
    bool connect(int port, double seconds) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
        while (std::chrono::steady_clock::now() < end) {
            fd_ = ::socket(AF_INET, SOCK_STREAM, 0);
            sockaddr_in a{};
            a.sin_family = AF_INET;
            a.sin_port = htons(static_cast<uint16_t>(port));
            a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
            if (::connect(fd_, reinterpret_cast<sockaddr*>(&a), sizeof a) == 0) return true;
            ::close(fd_);
            fd_ = -1;
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
        return false;
    }
    ~GpsdClient() {
        if (fd_ >= 0) ::close(fd_);
    }
    void send(const std::string& text) { (void)!::write(fd_, text.data(), text.size()); }
    // The next whole line within `seconds`; empty when none came.
    std::string line(double seconds) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
        for (;;) {
            const size_t nl = buffer_.find('\n');
            if (nl != std::string::npos) {
                std::string l = buffer_.substr(0, nl);
                buffer_.erase(0, nl + 1);
                return l;
            }
            const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
            if (left.count() <= 0) return {};
            pollfd p{fd_, POLLIN, 0};
            if (::poll(&p, 1, static_cast<int>(left.count())) <= 0) return {};
            char buf[4096];
            const ssize_t n = ::read(fd_, buf, sizeof buf);
            if (n <= 0) return {};
            buffer_.append(buf, static_cast<size_t>(n));
        }
    }

private:
    int fd_ = -1;
    std::string buffer_;
};

// The text of a JSON member, as gpsd writes it ("class":"TPV", "mode":3).
inline std::string JsonValue(const std::string& line, const std::string& key) {
    const std::string k = "\"" + key + "\":";
    const size_t at = line.find(k);
    if (at == std::string::npos) return {};
    size_t start = at + k.size();
    if (start < line.size() && line[start] == '"') {
        const size_t end = line.find('"', start + 1);
        return line.substr(start + 1, end - start - 1);
    }
    const size_t end = line.find_first_of(",}", start);
    return line.substr(start, end - start);
}

}  // namespace ortelix::simcli
