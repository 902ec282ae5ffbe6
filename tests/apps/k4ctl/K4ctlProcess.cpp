#include "tests/apps/k4ctl/K4ctlProcess.h"

#include <gtest/gtest.h>
#include <signal.h>

#include "suite/sequence/SequenceWriter.h"

namespace k4test {
namespace {

constexpr int kLongest = 60'000;  // milliseconds; a run takes a fraction of a second

}  // namespace

void K4ctlProcess::Prepare(QProcess& process, const QStringList& arguments) const {
    QProcessEnvironment environment = m_environment;
    environment.insert(QStringLiteral("K4_HOME"), QString::fromStdString(Home().string()));
    process.setProcessEnvironment(environment);
    process.setProgram(QStringLiteral(K4CTL_PROGRAM));
    process.setArguments(arguments);
}

K4ctlRun K4ctlProcess::Finish(QProcess& process) {
    K4ctlRun run;
    if (process.state() != QProcess::NotRunning && !process.waitForFinished(kLongest)) {
        process.kill();
        process.waitForFinished(kLongest);
        run.err = "the program didn't end, or didn't start";
        return run;
    }
    const bool isByItself = process.exitStatus() == QProcess::NormalExit;
    run.code = isByItself ? process.exitCode() : -1;
    run.signal = isByItself ? 0 : process.exitCode();
    run.out = process.readAllStandardOutput().toStdString();
    run.err = process.readAllStandardError().toStdString();
    return run;
}

QString K4ctlProcess::AddFile(const std::string& name, const std::string& content) const {
    m_folder.Write("home/drives/A/" + name, content);
    return QString::fromStdString("A:\\" + name);
}

QString K4ctlProcess::AddSequence(const std::string& name) const {
    const QString path = AddFile(name);
    k4suite::SequenceFacts facts;
    facts.rows = 8;
    facts.columns = 16;
    k4suite::SequenceWriter writer((Home() / "drives" / "A" / name).string(), facts);
    for (std::uint8_t frame = 0; frame < 10; ++frame)
        EXPECT_TRUE(
            writer.AddGraphic(k4cmn::kGraphicFrame, 1000, std::vector<std::uint8_t>(16, frame)));
    EXPECT_TRUE(writer.Finish()) << writer.Problem();
    return path;
}

K4ctlRun K4ctlProcess::Run(const QStringList& arguments) const {
    QProcess process;
    Prepare(process, arguments);
    process.start();
    return Finish(process);
}

K4ctlRun K4ctlProcess::RunUntil(const std::function<bool(qint64 pid)>& holds, int signal,
                                const QStringList& arguments) const {
    constexpr int kLookEvery = 2;  // milliseconds
    QProcess process;
    Prepare(process, arguments);
    process.start();
    if (!process.waitForStarted(kLongest))
        return {};
    const qint64 pid = process.processId();
    while (!holds(pid)) {
        if (process.waitForFinished(kLookEvery))
            return Finish(process);
    }
    kill(static_cast<pid_t>(pid), signal);
    return Finish(process);
}

K4ctlRun K4ctlProcess::RunInto(const QString& file, const QStringList& arguments) const {
    QProcess process;
    Prepare(process, arguments);
    process.setStandardOutputFile(file);
    process.start();
    return Finish(process);
}

}  // namespace k4test
