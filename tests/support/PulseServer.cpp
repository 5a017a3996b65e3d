#include "tests/support/PulseServer.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

namespace {

constexpr int patienceMs = 20000;

void restore(const char* variable, bool had, const QByteArray& value)
{
    if (had)
        qputenv(variable, value);
    else
        qunsetenv(variable);
}

std::vector<char*> pointers(QByteArrayList& texts)
{
    std::vector<char*> result;
    for (QByteArray& text : texts) result.push_back(text.data());
    result.push_back(nullptr);
    return result;
}

/// Starts a program; 0 when it can't. Not a QProcess: that shares memory with the child for a moment, and the
/// thread sanitizer, which goes quiet in a child, would go quiet in the test.
pid_t spawn(const QStringList& command, QByteArrayList environment, const QString& output, const QString& log)
{
    QByteArrayList arguments;
    for (const QString& argument : command) arguments.push_back(QFile::encodeName(argument));

    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, 0, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&files, 1, QFile::encodeName(output), O_WRONLY | O_CREAT | O_TRUNC,
                                     0600);
    posix_spawn_file_actions_addopen(&files, 2, QFile::encodeName(log), O_WRONLY | O_CREAT | O_APPEND, 0600);
    pid_t child = 0;
    const int error = posix_spawnp(&child, arguments[0], &files, nullptr, pointers(arguments).data(),
                                   pointers(environment).data());
    posix_spawn_file_actions_destroy(&files);
    return error == 0 ? child : 0;
}

void endNow(pid_t& child)
{
    if (child == 0) return;
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    child = 0;
}

}

PulseServer::PulseServer()
    : oldServer_(qgetenv("PULSE_SERVER")), oldCookie_(qgetenv("PULSE_COOKIE")),
      hadServer_(qEnvironmentVariableIsSet("PULSE_SERVER")),
      hadCookie_(qEnvironmentVariableIsSet("PULSE_COOKIE"))
{
    qputenv("PULSE_SERVER", "unix:" + QFile::encodeName(folder_.filePath("native")));
    qputenv("PULSE_COOKIE", QFile::encodeName(folder_.filePath("cookie")));
    QDir(folder_.path()).mkdir("home");
    QFile cookie(folder_.filePath("cookie"));
    if (cookie.open(QIODevice::WriteOnly)) cookie.write(QByteArray(256, 'q'));
}

PulseServer::~PulseServer()
{
    endNow(recorder_);
    kill();
    restore("PULSE_SERVER", hadServer_, oldServer_);
    restore("PULSE_COOKIE", hadCookie_, oldCookie_);
}

pid_t PulseServer::run(const QStringList& command, const QString& output) const
{
    const QByteArray folder = QFile::encodeName(folder_.path());
    return spawn(command,
                 {"PATH=" + qgetenv("PATH"), "HOME=" + folder + "/home", "XDG_RUNTIME_DIR=" + folder,
                  "PULSE_SERVER=unix:" + folder + "/native", "PULSE_COOKIE=" + folder + "/cookie", "LANG=C"},
                 output.isEmpty() ? "/dev/null" : output, folder_.filePath("log"));
}

bool PulseServer::start(int rate)
{
    rate_ = rate;
    // Without norewinds the device renders up to two seconds ahead, and a recording misses the beginning.
    const QString sink = QString("module-null-sink sink_name=out rate=%1 channels=2 format=s16le norewinds=1 "
                                 "sink_properties=device.description=TestOut")
                             .arg(rate);
    server_ = run({"pulseaudio", "-n", "--daemonize=no", "--use-pid-file=no", "--exit-idle-time=-1",
                   "--high-priority=no", "--realtime=no", "--log-target=stderr", "--log-level=notice", "-L",
                   "module-native-protocol-unix auth-anonymous=1 socket=" + folder_.filePath("native"), "-L",
                   sink});
    return server_ != 0 && QTest::qWaitFor([this] { return answers(); }, patienceMs);
}

bool PulseServer::answers()
{
    return QFile::exists(folder_.filePath("native")) && control({"info"});
}

bool PulseServer::control(const QStringList& arguments)
{
    return finishes(run(QStringList{"pactl"} + arguments));
}

QByteArray PulseServer::ask(const QStringList& arguments)
{
    QFile answer(folder_.filePath("answer"));
    if (!finishes(run(QStringList{"pactl"} + arguments, answer.fileName()))) return {};
    return answer.open(QIODevice::ReadOnly) ? answer.readAll() : QByteArray();
}

// True when it ended well within our patience.
bool PulseServer::finishes(pid_t child) const
{
    int status = -1;
    const auto finished = [&] { return ::waitpid(child, &status, WNOHANG) == child; };
    if (child == 0) return false;
    if (QTest::qWaitFor(finished, patienceMs)) return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    endNow(child);
    return false;
}

bool PulseServer::record(const QString& sink)
{
    endNow(recorder_);
    ++recordings_;
    recorder_ = run({"parec", "--raw", "--format=s16le", "--channels=2", QString("--rate=%1").arg(rate_),
                     "--latency-msec=20", "--device=" + sink + ".monitor"},
                    recordingPath());
    return recorder_ != 0 && QTest::qWaitFor([this] { return recordedBytes() > 0; }, patienceMs);
}

QString PulseServer::recordingPath() const
{
    return folder_.filePath(QString("recording%1").arg(recordings_));
}

qint64 PulseServer::recordedBytes() const
{
    return QFile(recordingPath()).size();
}

QByteArray PulseServer::recordedSince(qint64 byte) const
{
    QFile recording(recordingPath());
    if (!recording.open(QIODevice::ReadOnly) || !recording.seek(byte)) return {};
    return recording.readAll();
}

void PulseServer::kill()
{
    endNow(server_);
}

void PulseServer::freeze()
{
    ::kill(server_, SIGSTOP);
}

void PulseServer::thaw()
{
    ::kill(server_, SIGCONT);
}
