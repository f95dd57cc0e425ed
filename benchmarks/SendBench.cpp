// Sending a theme to an SSH server on this machine, by the command and by the usual tool with the
// same files and the same key; near by, and with 50 ms for each turn of the network. Both are whole
// processes, from start to end.
#include "support/CuttingProxy.h"

#include <benchmark/benchmark.h>

namespace
{
constexpr std::chrono::milliseconds oneWay(25);

class Bench
{
public:
    Bench()
    {
        qputenv("HOME", _home); // the server's is for those alone who connect to it
        for (const int port : {_server.port(), _proxy.port()})
            _known += QString("[127.0.0.1]:%1 ").arg(port).toUtf8() +
                      contents(_server.hostKey() + ".pub");
        put(_server.knownHosts(), _known);
        environment.insert("HOME", _server.home());
        environment.insert("TINTLOOM_DOCUMENTS", _server.home() + "/documents");
        environment.remove("SSH_AUTH_SOCK");
        if (run(command(false)))
            prepareBatch();
    }

    /// Whether it has sent all.
    bool run(QStringList command) const
    {
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(command.takeFirst(), command);
        process.waitForFinished(-1);
        return process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    }

    bool isThere() const { return tree(_server.themes()).size() == 5; }
    void clear() const { NSFileManager::removeItemAtPath(_server.themes() + "/Tintloom"); }

    QStringList command(bool far) const
    {
        return {TINTLOOM_PROGRAM, "send",
                QString("%1@127.0.0.1:%2").arg(SshServer::user()).arg(port(far)), "--folder",
                _server.themes()};
    }

    QStringList tool(bool far) const
    {
        return {"sftp",
                "-q",
                "-F",
                "none",
                "-i",
                _server.userKey(),
                "-o",
                "UserKnownHostsFile=" + _server.knownHosts(),
                "-b",
                _server.home() + "/batch",
                "-P",
                QString::number(port(far)),
                SshServer::user() + "@127.0.0.1"};
    }

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();

private:
    int port(bool far) const { return far ? _proxy.port() : _server.port(); }

    /// The same files, one by one: asked to put a folder, the tool takes more turns.
    void prepareBatch() const
    {
        const QString copy = _server.home() + "/theme", there = _server.themes() + "/Tintloom";
        NSFileManager::copyItemAtPath(there, copy);
        QString batch = "mkdir " + there + "\nmkdir " + there + "/UIKit\n";
        for (const QString &path : tree(copy))
            if (!QFileInfo(copy + "/" + path).isDir())
                batch += "put " + copy + "/" + path + " " + there + "/" + path + "\n";
        put(_server.home() + "/batch", batch.toUtf8());
    }

    const QByteArray _home = qgetenv("HOME");
    const SshServer _server;
    const CuttingProxy _proxy{_server.port(), oneWay, -1};
    QByteArray _known;
};

void send(benchmark::State &state, bool byTool, bool far)
{
    static const Bench bench;
    for ([[maybe_unused]] auto iteration : state) {
        state.PauseTiming();
        bench.clear();
        const QStringList command = byTool ? bench.tool(far) : bench.command(far);
        state.ResumeTiming();
        if (!bench.run(command) || !bench.isThere()) {
            state.SkipWithError("it has not been sent");
            return;
        }
    }
}
BENCHMARK_CAPTURE(send, near, false, false)
    ->Name("send")
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(send, tool_near, true, false)
    ->Name("send_sftp")
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(send, far, false, true)
    ->Name("send_far")
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(send, tool_far, true, true)
    ->Name("send_far_sftp")
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
} // namespace
