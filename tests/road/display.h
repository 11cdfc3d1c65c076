#pragma once

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

namespace dunvey::test {

/// A screen of the test's own, without a window manager.
class Display {
 public:
    Display() {
        int ends[2];
        if (pipe(ends) != 0) return;
        server_ = fork();
        if (server_ == 0) {
            // A server that resets forgets the keys held down when its last client leaves.
            const std::string number = std::to_string(ends[1]);
            execlp("Xvfb", "Xvfb", "-displayfd", number.c_str(), "-screen", "0", "800x600x24",
                   "-nolisten", "tcp", "-noreset", nullptr);
            _exit(127);
        }
        close(ends[1]);
        for (char c; read(ends[0], &c, 1) == 1 && c != '\n';)
            number_ += c;
        close(ends[0]);
    }
    ~Display() {
        kill(server_, SIGTERM);
        waitpid(server_, nullptr, 0);
    }
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;

    /// Empty if there is no server.
    std::string Name() const { return number_.empty() ? "" : ":" + number_; }
    /// What the user's hands do, in xdotool's words. Returns whether that worked.
    bool Do(const std::string& words) const {
        return system(("DISPLAY=" + Name() + " xdotool " + words).c_str()) == 0;
    }

 private:
    pid_t server_ = -1;
    std::string number_;
};

}  // namespace dunvey::test
