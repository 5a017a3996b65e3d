// A sound server of the test's own, with one output device and a recorder that hears what is played on it. It
// needs no sound card, no session and no rights. While it lives, PULSE_SERVER leads to it and nowhere else.
#pragma once

#include <QByteArray>
#include <QStringList>
#include <QTemporaryDir>

#include <sys/types.h>

class PulseServer {
public:
    PulseServer();
    ~PulseServer();    ///< ends recorder and server, gives PULSE_SERVER its old value back

    /// Starts the server with the device "out", stereo, at this rate in Hz; true once it answers. Sound of
    /// the same rate passes unchanged; of another rate it is resampled.
    bool start(int rate = 44100);

    /// Begins to record what is heard on a device; true once the recording runs. The recording goes on in
    /// silence too, and begins anew at each call.
    bool record(const QString& sink = "out");

    qint64 recordedBytes() const;    ///< grows while the recorder runs; no event loop needed

    /// Raw 16-bit stereo from this byte of the recording on.
    QByteArray recordedSince(qint64 byte = 0) const;

    /// Runs one command of `pactl` on the server, such as {"load-module", "module-null-sink"}.
    bool control(const QStringList& arguments);
    /// The same, and what it printed; "" where it failed.
    QByteArray ask(const QStringList& arguments);

    void kill();      ///< at once, as a crash
    void freeze();    ///< keeps its connections and answers no more
    void thaw();

private:
    bool answers();
    pid_t run(const QStringList& command, const QString& output = {}) const;
    bool finishes(pid_t child) const;
    QString recordingPath() const;

    QTemporaryDir folder_;
    int rate_ = 44100;
    int recordings_ = 0;
    QByteArray oldServer_, oldCookie_;
    bool hadServer_, hadCookie_;
    pid_t server_ = 0, recorder_ = 0;    // 0: does not run
};
