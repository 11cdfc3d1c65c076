#include "platform/linux/helper_test.h"

#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>

namespace dunvey {

void BecomeOldKernel() {
    sock_filter filter[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_close_range, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | ENOSYS),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    sock_fprog program{static_cast<unsigned short>(std::size(filter)), filter};
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0) _exit(99);
    if (prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) != 0) _exit(99);
}

bool Eventually(const std::function<bool()>& condition) {
    for (int i = 0; i < 2'000; ++i) {
        if (condition()) return true;
        usleep(5'000);
    }
    return false;
}

bool Exists(const std::string& path) {
    return access(path.c_str(), F_OK) == 0;
}

std::string ReadText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void WriteText(const std::string& path, const std::string& text, mode_t mode) {
    std::ofstream(path, std::ios::binary) << text;
    chmod(path.c_str(), mode);
}

HelperTest::HelperTest() {
    prctl(PR_SET_CHILD_SUBREAPER, 1);
    setenv("DUNVEY_RECORD", In("records").c_str(), 1);
}

HelperTest::~HelperTest() {
    while (!Children().empty())
        EndChildren();
}

std::string HelperTest::MakeBundle(const std::string& relative) const {
    MakeFolder(relative + "/Contents/MacOS");
    return In(relative);
}

std::string HelperTest::MakeRecorder(const std::string& path) const {
    WriteText(path, ReadText(DUNVEY_RECORDER), 0755);
    return path;
}

std::string HelperTest::MakeStayingScript(const std::string& path,
                                          const std::string& firstLine) const {
    const std::string pipe = In("never-written");
    mkfifo(pipe.c_str(), 0600);
    WriteText(path, firstLine + "\nread -r unused <'" + pipe + "'\n", 0755);
    return path;
}

pid_t HelperTest::Start(const Words& words, const Preparation& prepare) const {
    std::vector<char*> arguments;
    for (const std::string& word : words)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        if (prepare) prepare();
        execv(arguments[0], arguments.data());
        _exit(98);
    }
    return child;
}

pid_t HelperTest::StartRecorder(const Words& words) const {
    const size_t before = Records().size();
    const pid_t child = Start(words);
    EXPECT_TRUE(Eventually([&] { return Records().size() > before; })) << words.front();
    return child;
}

Finished HelperTest::Run(const std::string& helper, const Words& arguments,
                         const Preparation& prepare) const {
    Words words{Helper(helper)};
    words.insert(words.end(), arguments.begin(), arguments.end());
    const pid_t child = Start(words, [&] {
        const int flags = O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC;
        dup2(open(In("output").c_str(), flags, 0600), STDOUT_FILENO);
        dup2(open(In("errors").c_str(), flags, 0600), STDERR_FILENO);
        if (prepare) prepare();
    });
    int status = 0;
    waitpid(child, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status), ReadText(In("output")),
            ReadText(In("errors"))};
}

Finished HelperTest::Refused(const std::string& helper, const Words& arguments, int code,
                             const std::string& text) const {
    const Finished finished = Run(helper, arguments);
    EXPECT_EQ(finished.code, code) << testing::PrintToString(arguments);
    EXPECT_NE(finished.errors.find(text), std::string::npos) << finished.errors;
    return finished;
}

bool HelperTest::IsRunning(pid_t child) {
    siginfo_t ended{};
    const int result = waitid(P_PID, static_cast<id_t>(child), &ended, WEXITED | WNOHANG | WNOWAIT);
    return result == 0 && ended.si_pid == 0;
}

void HelperTest::End(pid_t child) {
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
}

void HelperTest::EndChildren() {
    for (const pid_t child : Children())
        End(child);
}

std::vector<pid_t> HelperTest::Children() {
    const std::string own = std::to_string(getpid());
    std::istringstream list(ReadText("/proc/" + own + "/task/" + own + "/children"));
    return {std::istream_iterator<pid_t>(list), {}};
}

}  // namespace dunvey
