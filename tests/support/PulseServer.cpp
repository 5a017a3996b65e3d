#include "tests/support/PulseServer.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <csignal>

namespace {

constexpr int patienceMs = 20000;

/// Makes QProcess use a real fork. The short-cut that it takes otherwise shares memory with the child, and the
/// thread sanitizer, which goes quiet in a child, would go quiet in the test.
void forkForReal(QProcess& process)
{
    process.setChildProcessModifier([] {});
}

void restore(const char* variable, bool had, const QByteArray& value)
{
    if (had)
        qputenv(variable, value);
    else
        qunsetenv(variable);
}

}

PulseServer::PulseServer()
    : oldServer_(qgetenv("PULSE_SERVER")), oldCookie_(qgetenv("PULSE_COOKIE")),
      hadServer_(qEnvironmentVariableIsSet("PULSE_SERVER")),
      hadCookie_(qEnvironmentVariableIsSet("PULSE_COOKIE"))
{
    qputenv("PULSE_SERVER", "unix:" + QFile::encodeName(folder_.filePath("native")));
    qputenv("PULSE_COOKIE", QFile::encodeName(folder_.filePath("cookie")));
    forkForReal(server_);
    forkForReal(recorder_);
    QDir(folder_.path()).mkdir("home");
    QFile cookie(folder_.filePath("cookie"));
    if (cookie.open(QIODevice::WriteOnly)) cookie.write(QByteArray(256, 'q'));
}

PulseServer::~PulseServer()
{
    recorder_.kill();
    recorder_.waitForFinished(patienceMs);
    kill();
    restore("PULSE_SERVER", hadServer_, oldServer_);
    restore("PULSE_COOKIE", hadCookie_, oldCookie_);
}

QProcessEnvironment PulseServer::environment() const
{
    QProcessEnvironment bare;
    bare.insert("PATH", qEnvironmentVariable("PATH"));
    bare.insert("HOME", folder_.filePath("home"));
    bare.insert("XDG_RUNTIME_DIR", folder_.path());
    bare.insert("PULSE_SERVER", "unix:" + folder_.filePath("native"));
    bare.insert("PULSE_COOKIE", folder_.filePath("cookie"));
    bare.insert("LANG", "C");
    return bare;
}

bool PulseServer::start(int rate)
{
    rate_ = rate;
    // Without norewinds the device renders up to two seconds ahead, and a recording misses the beginning.
    const QString sink = QString("module-null-sink sink_name=out rate=%1 channels=2 format=s16le norewinds=1 "
                                 "sink_properties=device.description=TestOut")
                             .arg(rate);
    QProcessEnvironment own = environment();
    own.remove("PULSE_SERVER");
    server_.setProcessEnvironment(own);
    server_.setStandardErrorFile(folder_.filePath("log"));
    server_.start("pulseaudio",
                  {"-n", "--daemonize=no", "--use-pid-file=no", "--exit-idle-time=-1", "--high-priority=no",
                   "--realtime=no", "--log-target=stderr", "--log-level=notice", "-L",
                   "module-native-protocol-unix auth-anonymous=1 socket=" + folder_.filePath("native"), "-L",
                   sink});
    return server_.waitForStarted(patienceMs) && QTest::qWaitFor([this] { return answers(); }, patienceMs);
}

bool PulseServer::answers() { return QFile::exists(folder_.filePath("native")) && control({"info"}); }

bool PulseServer::control(const QStringList& arguments)
{
    QProcess pactl;
    forkForReal(pactl);
    pactl.setProcessEnvironment(environment());
    pactl.start("pactl", arguments);
    return pactl.waitForFinished(patienceMs) && pactl.exitStatus() == QProcess::NormalExit &&
           pactl.exitCode() == 0;
}

bool PulseServer::record(const QString& sink)
{
    recorder_.kill();
    recorder_.waitForFinished(patienceMs);
    recorder_.setProcessEnvironment(environment());
    recorder_.setStandardOutputFile(folder_.filePath(QString("recording%1").arg(++recordings_)));
    recorder_.start("parec", {"--raw", "--format=s16le", "--channels=2", QString("--rate=%1").arg(rate_),
                              "--latency-msec=20", "--device=" + sink + ".monitor"});
    return QTest::qWaitFor([this] { return recordedBytes() > 0; }, patienceMs);
}

qint64 PulseServer::recordedBytes() const
{
    return QFile(folder_.filePath(QString("recording%1").arg(recordings_))).size();
}

QByteArray PulseServer::recordedSince(qint64 byte) const
{
    QFile recording(folder_.filePath(QString("recording%1").arg(recordings_)));
    if (!recording.open(QIODevice::ReadOnly) || !recording.seek(byte)) return {};
    return recording.readAll();
}

void PulseServer::kill()
{
    server_.kill();
    server_.waitForFinished(patienceMs);
}

void PulseServer::freeze() { ::kill(static_cast<pid_t>(server_.processId()), SIGSTOP); }

void PulseServer::thaw() { ::kill(static_cast<pid_t>(server_.processId()), SIGCONT); }
