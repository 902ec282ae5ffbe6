#include "apps/workbench/TourTool.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QProcess>

#include "apps/workbench/TourRecord.h"

namespace workbench {

QJsonObject RunTool(TourRecord& record, const QStringList& arguments, const std::string& what) {
    QProcess tool;
    tool.start(QCoreApplication::applicationDirPath() + QStringLiteral("/k4ctl"),
               QStringList(arguments) << QStringLiteral("--json"));
    const bool ended = tool.waitForFinished(30000);
    const QJsonDocument answer = QJsonDocument::fromJson(tool.readAllStandardOutput());
    const bool passed = ended && tool.exitStatus() == QProcess::NormalExit &&
                        tool.exitCode() == 0 && answer.isObject();
    record.Step(passed,
                what + (passed ? std::string() : ": " + tool.readAllStandardError().toStdString()));
    return passed ? answer.object() : QJsonObject();
}

}  // namespace workbench
