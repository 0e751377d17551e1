#pragma once

#include "Support/TemporaryFolder.h"

#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace Support {

struct ProgramResult {
    int exitCode = -1; ///< -1 if a signal ended the program
    int signal = 0;
    std::string output, errors;
};

/// A program that runs in parallel to the test, with its own process group and data folder.
class Program {
public:
    /// `output` receives its standard output instead of the result.
    Program(const std::vector<std::string>& words, const std::string& workingDirectory,
            const std::string& output = {}) {
        std::vector<char*> arguments;
        for (const std::string& word : words)
            arguments.push_back(const_cast<char*>(word.c_str()));
        arguments.push_back(nullptr);
        const std::string outputPath = output.empty() ? folder / "stdout" : output;
        id = fork();
        if (id != 0)
            return;
        setpgid(0, 0);
        setenv("XDG_DATA_HOME", (folder / "data").c_str(), 1);
        const int out = open(outputPath.c_str(), O_WRONLY | O_CREAT, 0600);
        const int err = open((folder / "stderr").c_str(), O_WRONLY | O_CREAT, 0600);
        if (dup2(out, STDOUT_FILENO) < 0 || dup2(err, STDERR_FILENO) < 0 || chdir(workingDirectory.c_str()) != 0)
            _exit(126);
        execv(arguments[0], arguments.data());
        _exit(127);
    }

    ProgramResult Wait() {
        int status = 0;
        waitpid(id, &status, 0);
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, WIFSIGNALED(status) ? WTERMSIG(status) : 0,
                folder.Read("stdout"), folder.Read("stderr")};
    }

    pid_t Id() const { return id; }
    std::string Errors() const { return folder.Read("stderr"); } ///< so far
    const TemporaryFolder& DataFolder() const { return folder; } ///< the user's data are in its folder "data"

private:
    TemporaryFolder folder;
    pid_t id = -1;
};

} // namespace Support
