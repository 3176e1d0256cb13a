// SPDX-License-Identifier: MIT
#include "app/frm_about.h"

#include "app/version.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/process.h"
#include "platform/registry.h"
#include "platform/runtime_error.h"

#include "ui_frm_about.h"

using namespace Qt::StringLiterals;

namespace
{

constexpr QLatin1StringView sharedTools = R"(SOFTWARE\Microsoft\Shared Tools)"_L1;
constexpr int normalWindow = 1;

/// The text of a machine value; a number's is its hexadecimal notation. Empty without one.
QString machineText(const Registry &registry, const QString &key, const QString &name)
{
    const std::optional<RegistryData> data = registry.value(RegistryHive::LocalMachine, key, name);
    if (!data) {
        return {};
    }
    const auto *const number = std::get_if<std::uint32_t>(&*data);
    return number != nullptr ? u"&h"_s + QString::number(*number, 16).toUpper()
                             : std::get<QString>(*data);
}

/// The system information tool; empty when the registry knows none.
QString systemInformationTool(const Registry &registry)
{
    const QString path = machineText(registry, sharedTools + u"\\MSINFO"_s, u"PATH"_s);
    if (!path.isEmpty()) {
        return path;
    }
    const QString folder = machineText(registry, sharedTools + u" Location"_s, u"MSINFO"_s);
    const QString tool = folder + u"\\MSINFO32.EXE"_s;
    return !folder.isEmpty() && files::isFile(tool) ? tool : QString();
}

/// Starts a program, and says whether that could be done.
bool started(ProcessStarter &processes, const QString &program)
{
    try {
        processes.start(program, normalWindow);
        return true;
    } catch (const RuntimeError &) {
        return false; // registered, and gone
    }
}

} // namespace

frmAbout::frmAbout(const Outside &outside, const QString &osVersion, QWidget *parent)
    : QDialog(parent), m_outside(outside), ui(std::make_unique<Ui::frmAbout>())
{
    ui->setupUi(this);
    setWindowTitle(u"About "_s + ui->lblTitle->text());
    ui->lblVersion->setText(u"Version "_s + programVersion());
    ui->lblOsVersion->setText(u"Operating system: "_s + osVersion);
    connect(ui->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui->cmdSysInfo, &QPushButton::clicked, this, &frmAbout::cmdSysInfo_Click);
}

frmAbout::~frmAbout() = default;

void frmAbout::cmdSysInfo_Click()
{
    const QString tool = systemInformationTool(m_outside.registry);
    if (tool.isEmpty() || !started(m_outside.processes, tool)) {
        m_outside.dialogs.show({.prompt = u"System Information Is Unavailable At This Time"_s,
                                .title = ui->lblTitle->text()});
    }
}
