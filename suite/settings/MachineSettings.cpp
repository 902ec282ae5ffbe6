#include "suite/settings/MachineSettings.h"

#include <QRegularExpression>
#include <algorithm>

#include "k4cmndlg/filestore/SignLimits.h"
#include "k4cmndlg/filestore/SignNames.h"
#include "suite/settings/IniFile.h"
#include "suite/settings/IniValue.h"
#include "suite/settings/NameText.h"

// The file, for people who edit it: a section a service, "Service1", "Service2" and so on, with
// "Name", "PhoneBookEntry" (absent: reached without dialing), "Server1", "Server2" and so on, and
// the signs as "Sign1\Name", "Sign1\Rows", "Sign1\Columns", "Sign1\Color" and "Sign1\Pixel" (the
// short names, or numbers), "Sign1\Orientation", "Sign1\Text1", "Sign1\Number1" and so on. The
// numbers give the order; they need not be without gaps. In a value a '\' is written twice:
// Server2=\\\\STORE\\SIGNS. docs/data-home.md tells all of it.

namespace k4suite {

namespace {

constexpr std::size_t kMostFurtherSettings = 32;

QString Numbered(const char* word, std::size_t number) {
    return QLatin1String(word) + QString::number(number);
}

/// The numbers behind a word in a list of names, in ascending order.
std::vector<std::size_t> NumbersOf(const QStringList& names, const char* word) {
    const QRegularExpression shape(QLatin1Char('^') + QLatin1String(word) +
                                   QLatin1String("([1-9][0-9]{0,8})$"));
    std::vector<std::size_t> numbers;
    for (const QString& name : names) {
        if (const QRegularExpressionMatch match = shape.match(name); match.hasMatch())
            numbers.push_back(match.captured(1).toUInt());
    }
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

std::string Text(const QSettings& file, const QString& key) {
    std::string text;
    ReadText(file, key, text);
    return text;
}

std::uint32_t Number(const QSettings& file, const QString& key) {
    std::uint32_t number = 0;
    ReadNumber(file, key, number);
    return number;
}

/// A value of an enumeration, by its short name or its number.
/// @return 1, or 0 if the text is neither.
template <class Value>
int ReadNamed(const QSettings& file, const char* name, int first, int count,
              std::string_view (*nameOf)(Value), Value& value) {
    const QString key = QLatin1String(name);
    const std::string text = Text(file, key);
    for (int candidate = first; candidate < first + count; ++candidate) {
        if (IsSameName(nameOf(static_cast<Value>(candidate)), text)) {
            value = static_cast<Value>(candidate);
            return 1;
        }
    }
    std::uint32_t number = 0;
    if (!ReadNumber(file, key, number) || number > 255)
        return 0;
    value = static_cast<Value>(number);
    return 1;
}

template <class Value>
void WriteNamed(QSettings& file, const char* name, std::string_view (*nameOf)(Value), Value value) {
    const std::string text(nameOf(value));
    if (text.empty())
        WriteNumber(file, QLatin1String(name), static_cast<std::uint32_t>(value));
    else
        WriteText(file, QLatin1String(name), text);
}

void Report(std::string* problem, const std::string& text) {
    if (problem)
        *problem += (problem->empty() ? "" : "\n") + text;
}

/// What is wrong with a sign, as one line; empty if nothing is.
std::string WrongWith(const k4cmn::SignSettings& sign) {
    std::string wrong;
    for (const std::string& message : k4cmn::SignSizeMessages(sign.rows, sign.columns))
        wrong += (wrong.empty() ? "" : " ") + message.substr(0, message.find('\n'));
    return wrong;
}

/// Reads the sign that the file's group stands at.
/// @return what is wrong with it; empty if nothing is.
std::string ReadSign(QSettings& file, SignSetup& sign) {
    k4cmn::SignSettings& settings = sign.settings;
    sign.name = Text(file, QLatin1String("Name"));
    settings.rows = Number(file, QLatin1String("Rows"));
    settings.columns = Number(file, QLatin1String("Columns"));
    settings.orientation =
        static_cast<tag_K4_OUTPUT_ORIENTATION>(Number(file, QLatin1String("Orientation")) & 0xFF);
    const QStringList keys = file.childKeys();
    for (std::size_t number : NumbersOf(keys, "Text"))
        settings.texts.push_back(Text(file, Numbered("Text", number)));
    for (std::size_t number : NumbersOf(keys, "Number"))
        settings.numbers.push_back(Number(file, Numbered("Number", number)));
    settings.texts.resize(std::min(settings.texts.size(), kMostFurtherSettings));
    settings.numbers.resize(std::min(settings.numbers.size(), kMostFurtherSettings));

    if (sign.name.empty())
        return "It has no name.";
    if (!ReadNamed(file, "Color", 0, k4cmn::kSignColorCount, k4cmn::ColorShortName, settings.color))
        return "Its color technology is unknown.";
    if (!ReadNamed(file, "Pixel", 1, k4cmn::kPixelTechCount, k4cmn::PixelShortName, settings.pixel))
        return "Its pixel technology is unknown.";
    return WrongWith(settings);
}

void ReadService(QSettings& file, ServiceSetup& service, std::string* problem) {
    service.name = Text(file, QLatin1String("Name"));
    service.phoneBookEntry = Text(file, QLatin1String("PhoneBookEntry"));
    for (std::size_t number : NumbersOf(file.childKeys(), "Server"))
        service.servers.push_back(Text(file, Numbered("Server", number)));
    for (std::size_t number : NumbersOf(file.childGroups(), "Sign")) {
        SignSetup sign;
        file.beginGroup(Numbered("Sign", number));
        std::string wrong = ReadSign(file, sign);
        file.endGroup();
        for (const SignSetup& other : service.signs) {
            if (wrong.empty() && IsSameName(other.name, sign.name))
                wrong = "Another sign has its name.";
        }
        if (wrong.empty())
            service.signs.push_back(std::move(sign));
        else
            Report(problem, "Sign " + std::to_string(number) + " (\"" + sign.name +
                                "\") of the service \"" + service.name + "\" is left out. " +
                                wrong);
    }
}

/// Whether a service is there already. The same name behind another phone book entry is another
/// machine.
bool IsThere(const MachineSettings& settings, const ServiceSetup& service) {
    return std::any_of(settings.services.begin(), settings.services.end(),
                       [&](const ServiceSetup& other) {
                           return IsSameName(other.name, service.name) &&
                                  IsSameName(other.phoneBookEntry, service.phoneBookEntry);
                       });
}

void ReadServices(QSettings& file, MachineSettings& settings, std::string* problem) {
    for (std::size_t number : NumbersOf(file.childGroups(), "Service")) {
        ServiceSetup service;
        file.beginGroup(Numbered("Service", number));
        ReadService(file, service, problem);
        file.endGroup();
        if (service.name.empty())
            Report(problem, "Service " + std::to_string(number) + " is left out. It has no name.");
        else if (IsThere(settings, service))
            Report(problem, "Service " + std::to_string(number) + " (\"" + service.name +
                                "\") is left out. Another service has its name.");
        else
            settings.services.push_back(std::move(service));
    }
}

void WriteSign(QSettings& file, const SignSetup& sign) {
    const k4cmn::SignSettings& settings = sign.settings;
    WriteText(file, QLatin1String("Name"), sign.name);
    WriteNumber(file, QLatin1String("Rows"), settings.rows);
    WriteNumber(file, QLatin1String("Columns"), settings.columns);
    WriteNamed(file, "Color", k4cmn::ColorShortName, settings.color);
    WriteNamed(file, "Pixel", k4cmn::PixelShortName, settings.pixel);
    WriteNumber(file, QLatin1String("Orientation"),
                static_cast<std::uint32_t>(settings.orientation));
    for (std::size_t i = 0; i < settings.texts.size(); ++i)
        WriteText(file, Numbered("Text", i + 1), settings.texts[i]);
    for (std::size_t i = 0; i < settings.numbers.size(); ++i)
        WriteNumber(file, Numbered("Number", i + 1), settings.numbers[i]);
}

void WriteService(QSettings& file, const ServiceSetup& service) {
    WriteText(file, QLatin1String("Name"), service.name);
    if (!service.phoneBookEntry.empty())
        WriteText(file, QLatin1String("PhoneBookEntry"), service.phoneBookEntry);
    for (std::size_t i = 0; i < service.servers.size(); ++i)
        WriteText(file, Numbered("Server", i + 1), service.servers[i]);
    for (std::size_t i = 0; i < service.signs.size(); ++i) {
        file.beginGroup(Numbered("Sign", i + 1));
        WriteSign(file, service.signs[i]);
        file.endGroup();
    }
}

bool AreStorable(const std::vector<std::string>& texts) {
    return std::all_of(texts.begin(), texts.end(), IsStorable);
}

bool IsServiceStorable(const ServiceSetup& service) {
    return IsStorable(service.name) && IsStorable(service.phoneBookEntry) &&
           AreStorable(service.servers) &&
           std::all_of(service.signs.begin(), service.signs.end(), [](const SignSetup& sign) {
               return IsStorable(sign.name) && AreStorable(sign.settings.texts);
           });
}

}  // namespace

const ServiceSetup* MachineSettings::Find(const std::string& service) const {
    for (const ServiceSetup& setup : services) {
        if (IsSameName(setup.name, service))
            return &setup;
    }
    return nullptr;
}

int ReadMachineSettings(const DataHome& home, MachineSettings& settings, std::string* problem) {
    if (problem)
        problem->clear();
    std::error_code failed;
    if (!std::filesystem::exists(home.MachineSettings(), failed) && !failed) {
        // It was set aside at an earlier start; until somebody repairs it, each start says so.
        const std::string aside = home.MachineSettings().string() + ".damaged-1";
        if (std::filesystem::exists(aside, failed))
            Report(problem,
                   "There are no machine settings; damaged ones are kept as " + aside + ".");
        return 0;
    }
    MachineSettings read;
    IniFile file(home.MachineSettings());
    const int isRead = file.Read([&](QSettings& ini) { ReadServices(ini, read, problem); });
    const std::vector<std::string> damages = file.Problems();
    for (const std::string& damage : damages)
        Report(problem, damage);
    if (!isRead && damages.empty())
        Report(problem, home.MachineSettings().string() + " can't be read.");
    if (!isRead || !damages.empty())
        return 0;
    settings = std::move(read);
    return 1;
}

int WriteMachineSettings(const DataHome& home, const MachineSettings& settings) {
    if (!std::all_of(settings.services.begin(), settings.services.end(), IsServiceStorable))
        return 0;
    IniFile file(home.MachineSettings());
    return file.Update([&](QSettings& ini) {
        ini.clear();
        for (std::size_t i = 0; i < settings.services.size(); ++i) {
            ini.beginGroup(Numbered("Service", i + 1));
            WriteService(ini, settings.services[i]);
            ini.endGroup();
        }
    });
}

}  // namespace k4suite
