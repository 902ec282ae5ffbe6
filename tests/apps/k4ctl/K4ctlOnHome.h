#pragma once

#include <gtest/gtest.h>

#include <QJsonArray>

#include "tests/apps/k4ctl/K4ctlProcess.h"

namespace k4test {

/// Runs of the real program on one data home, which the first run makes.
class K4ctlOnHome : public testing::Test {
 protected:
    /// Runs it, which must end with code 0 and without a complaint.
    K4ctlRun Good(const QStringList& arguments) const {
        K4ctlRun run = program.Run(arguments);
        EXPECT_EQ(run.code, 0) << arguments.join(QLatin1Char(' ')).toStdString();
        EXPECT_EQ(run.err, "") << arguments.join(QLatin1Char(' ')).toStdString();
        return run;
    }
    QJsonObject GoodJson(QStringList arguments) const {
        arguments.insert(1, QStringLiteral("--json"));
        const K4ctlRun run = Good(arguments);
        EXPECT_FALSE(run.Json().isEmpty()) << run.out;
        return run.Json();
    }
    /// The signs of a service, by name.
    QStringList Signs(const QString& service) const {
        QStringList names;
        const QJsonObject listing = GoodJson({QStringLiteral("signs"), service});
        for (const auto each : listing[QLatin1String("signs")].toArray())
            names << each[QLatin1String("sign")].toString();
        return names;
    }
    QString FirstSign() const { return Signs(QStringLiteral("Local")).value(0); }

    K4ctlProcess program;
};

}  // namespace k4test
