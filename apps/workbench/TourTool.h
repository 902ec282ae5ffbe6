#pragma once

#include <QJsonObject>
#include <QStringList>
#include <string>

namespace workbench {

class TourRecord;

/// Runs k4ctl on the tour's data home, and notes whether it succeeded as a step.
/// @param what the step. @return what it answered; empty where it failed.
QJsonObject RunTool(TourRecord& record, const QStringList& arguments, const std::string& what);

}  // namespace workbench
