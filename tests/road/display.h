#pragma once

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace dunvey::test {

/// An X server of the test's own, with or without a window manager.
class Display {
 public:
    enum class Manager { None, Openbox };

    explicit Display(Manager manager = Manager::None) {
        StartServer();
        if (manager == Manager::Openbox) StartManager();
    }
    ~Display() { BreakDown(); }
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;

    /// Ends the server and the window manager while others may use them.
    void BreakDown() {
        for (pid_t* process : {&server_, &manager_}) {
            if (*process > 0) kill(*process, SIGTERM);
            if (*process > 0) waitpid(*process, nullptr, 0);
            *process = -1;
        }
    }

    /// Empty if there is no server.
    std::string Name() const { return number_.empty() ? "" : ":" + number_; }
    /// Runs an xdotool command; returns whether it succeeded.
    bool Do(const std::string& words) const { return system(Line(words).c_str()) == 0; }
    /// The output of an xdotool command without the last line feed; empty if it failed.
    std::string Ask(const std::string& words) const {
        FILE* answer = popen((Line(words) + " 2>/dev/null").c_str(), "r");
        std::string text;
        for (int c; answer != nullptr && (c = fgetc(answer)) != EOF;)
            text += static_cast<char>(c);
        if (answer != nullptr) pclose(answer);
        if (!text.empty() && text.back() == '\n') text.pop_back();
        return text;
    }

 private:
    std::string Line(const std::string& words) const {
        return "DISPLAY=" + Name() + " timeout 60 xdotool " + words;
    }

    void StartManager() {
        manager_ = fork();
        if (manager_ == 0) {
            setenv("DISPLAY", Name().c_str(), 1);
            if (freopen("/dev/null", "w", stderr) != nullptr) execlp("openbox", "openbox", nullptr);
            _exit(127);
        }
        AwaitManager("7");
        // The first key press makes the manager grab its own keys again; a key pressed meanwhile
        // is lost.
        Do("key Shift_L");
        AwaitManager("6");
    }

    /// The manager handles requests in their order. It manages windows once it has changed the
    /// number of desktops.
    void AwaitManager(const std::string& desktops) const {
        for (int i = 0; i < 600 && Ask("get_num_desktops") != desktops; ++i) {
            Do("set_num_desktops " + desktops);
            usleep(20'000);
        }
    }

    void StartServer() {
        int ends[2];
        if (pipe(ends) != 0) return;
        server_ = fork();
        if (server_ == 0) {
            // A server that resets forgets the keys held down when its last client leaves.
            const std::string number = std::to_string(ends[1]);
            execlp("Xvfb", "Xvfb", "-displayfd", number.c_str(), "-screen", "0", "1000x900x24",
                   "-nolisten", "tcp", "-noreset", nullptr);
            _exit(127);
        }
        close(ends[1]);
        for (char c; read(ends[0], &c, 1) == 1 && c != '\n';)
            number_ += c;
        close(ends[0]);
    }

    pid_t server_ = -1;
    pid_t manager_ = -1;
    std::string number_;
};

}  // namespace dunvey::test
