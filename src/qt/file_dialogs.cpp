#include "qt/file_dialogs.h"

#include <QFileDialog>
#include <QFileInfo>
#include <algorithm>

#include "qt/qt_text.h"

namespace zorkanca {

namespace {

// Folders of the other system's form are understood, too.
QString ToQtPath(TextView path) {
  return ToQt(path).replace(QLatin1Char('\\'), QLatin1Char('/'));
}

// The folder itself, else the nearest one above it that exists; the current folder for nothing.
QString NearestFolder(QString folder) {
  while (!folder.isEmpty() && !QFileInfo(folder).isDir()) {
    const qsizetype end = folder.lastIndexOf(QLatin1Char('/'));
    folder.truncate(end == 0 && folder.size() > 1 ? 1 : std::max<qsizetype>(end, 0));
  }
  return folder.isEmpty() ? QDir::currentPath() : folder;
}

QString TitleOr(TextView title, const QString& own) {
  return title.empty() ? own : ToQt(title);
}

void NameParts(QFileDialog& dialog, const QString& accept) {
  dialog.setLabelText(QFileDialog::Accept, accept);
  dialog.setLabelText(QFileDialog::Reject, QStringLiteral("Storno"));
  dialog.setLabelText(QFileDialog::LookIn, QStringLiteral("Kde hledat:"));
  dialog.setLabelText(QFileDialog::FileName, QStringLiteral("Název:"));
  dialog.setLabelText(QFileDialog::FileType, QStringLiteral("Typ souborů:"));
}

Text ChosenIn(QFileDialog& dialog) {
  if (dialog.exec() != QDialog::Accepted) return {};
  const QStringList files = dialog.selectedFiles();
  return files.isEmpty() ? Text() : FromQt(files.first());
}

}  // namespace

QStringList NameFilters(TextView filter) {
  const QStringList parts = ToQt(filter).split(QLatin1Char('|'));
  QStringList filters;
  for (qsizetype index = 0; index + 1 < parts.size(); index += 2) {
    QString name = parts[index];
    const qsizetype parenthesis = name.lastIndexOf(QLatin1Char('('));
    if (parenthesis > 0 && name.endsWith(QLatin1Char(')'))) name.truncate(parenthesis);  // it repeats the patterns
    QStringList patterns = parts[index + 1].split(QLatin1Char(';'), Qt::SkipEmptyParts);
    patterns.replaceInStrings(QStringLiteral("*.*"), QStringLiteral("*"));  // there all files, here those with a "."
    filters.append(QStringLiteral("%1 (%2)").arg(name.trimmed(), patterns.join(QLatin1Char(' '))));
  }
  return filters;
}

Text AskForFile(const FileDialog& dialog, QWidget* owner) {
  QFileDialog window(owner, TitleOr(dialog.title, QStringLiteral("Otevřít")));
  window.setFileMode(dialog.fileMustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
  NameParts(window, QStringLiteral("Otevřít"));
  window.setNameFilters(NameFilters(dialog.filter));
  window.setDefaultSuffix(ToQt(dialog.defaultExtension));
  const QFileInfo name(ToQtPath(dialog.fileName));
  const bool withFolder = name.fileName() != name.filePath();
  window.setDirectory(NearestFolder(withFolder ? name.path() : ToQtPath(dialog.folder)));
  if (!name.fileName().isEmpty()) window.selectFile(name.fileName());
  return ChosenIn(window);
}

Text AskForFolder(TextView title, TextView startFolder, QWidget* owner) {
  QFileDialog window(owner, TitleOr(title, QStringLiteral("Vyberte adresář")));
  window.setFileMode(QFileDialog::Directory);
  window.setOption(QFileDialog::ShowDirsOnly);
  NameParts(window, QStringLiteral("OK"));
  window.setDirectory(NearestFolder(ToQtPath(startFolder)));
  return ChosenIn(window);
}

}  // namespace zorkanca
