#pragma once

#include <signal.h>
#include <unistd.h>

#include <array>
#include <functional>

#include <gtest/gtest.h>
#include <sys/wait.h>

namespace zt {

/// A fork of the test program that does some work of its own, and speaks with the test in single bytes. It is ended
/// with the object.
class ChildProcess {
public:
    /// The child's side.
    class Pipes {
    public:
        Pipes(int in, int out) : in_(in), out_(out) {}
        void Send(char byte) {
            if (write(out_, &byte, 1) != 1) _exit(2);
        }
        void WaitForEnd() {
            char byte = 0;
            while (read(in_, &byte, 1) > 0) {
            }
        }

    private:
        int in_;
        int out_;
    };

    explicit ChildProcess(const std::function<void(Pipes&)>& work) {
        std::array<int, 2> down{};
        std::array<int, 2> up{};
        EXPECT_EQ(pipe(down.data()), 0);
        EXPECT_EQ(pipe(up.data()), 0);
        child_ = fork();
        if (child_ == 0) {
            close(down[1]);
            close(up[0]);
            Pipes pipes(down[0], up[1]);
            work(pipes);
            _exit(0);
        }
        close(down[0]);
        close(up[1]);
        out_ = down[1];
        in_ = up[0];
    }
    ~ChildProcess() {
        close(out_);
        Wait();
        close(in_);
    }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// The next byte that the child sends; 0 when it has ended.
    char Receive() const {
        char byte = 0;
        return read(in_, &byte, 1) == 1 ? byte : '\0';
    }
    void Kill() {
        if (child_ > 0) kill(child_, SIGKILL);
        Wait();
    }

private:
    void Wait() {
        if (child_ > 0) waitpid(child_, nullptr, 0);
        child_ = 0;
    }

    pid_t child_ = 0;
    int in_ = -1;
    int out_ = -1;
};

}  // namespace zt
