#include "app/CommandLine.h"

#include "app/NearestNames.h"
#include "platform/foundation/ProgramFolder.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QMap>
#include <QRegularExpression>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace
{
constexpr int usageError = 2;

const QString help = uR"(Usage:
  tintloom [options] [--catalogue] [THEME]
                                        open the editor window, or the catalogue's; and there
                                        a theme that somebody else made, the path of a file
                                        or folder, to be kept or not
  tintloom list [options] [--json]      print every element in table order
  tintloom set [options] KEY=VALUE...   apply the edits to the current choices; the theme
                                        itself stays as it is
  tintloom save [options] [--set KEY=VALUE]...
                                        apply the edits to the current choices, then
                                        save the theme
  tintloom restore [options]            bring back the choices before the last save or
                                        restore; the theme itself stays as it is
  tintloom themes [options] [--json]    print the catalogue: ready-made themes and kept ones
  tintloom install [options] NAME       install one of them
  tintloom edit [options] NAME          install it and make it the current choices
  tintloom keep [options] NAME [--replace]
                                        keep the current choices as a theme of your own
  tintloom rename [options] NAME NEW    give a kept theme another name
  tintloom duplicate [options] NAME NEW keep a copy of it
  tintloom remove [options] NAME [--undo]
                                        remove a kept theme; --undo puts it back, for 30 days
  tintloom import [options] PATH|TEXT [--as NAME] [--replace]
                                        keep a theme that somebody else made: a package's
                                        folder or Info.plist, a .tintloom, .zip or .tar.gz
                                        archive, or shared text
  tintloom export [options] [THEME] PATH [--replace]
                                        write the current choices, or a theme, to pass them on:
                                        an archive by these endings, else a folder
  tintloom share [options] [THEME] [--qr FILE]
                                        print the current choices, or a theme, as a line of
                                        text that import reads
  tintloom preview [options] [THEME] [--view conversation|list|both]
                   [--eyes normal|protan|deutan|tritan|grey] --out FILE
                                        draw the phone with the current choices, or with a
                                        theme: a name of the catalogue, or a package's folder
  tintloom check [options] [THEME] [--json] [--fix]
                                        print which colours of the current choices, or of a
                                        theme, are hard to see; --fix changes them in the
                                        current choices, as little as possible

Options:
  --package-root DIR  folder that holds themes; default biteThemes in your desktop's
                      documents folder, on the phone /var/mobile/Library/biteThemes
                      (environment: TINTLOOM_PACKAGE_ROOT)
  --documents DIR     folder of the working copy; default the application data folder
                      (environment: TINTLOOM_DOCUMENTS)
  --resources DIR     folder of initialDatasource.txt; default the installed one
                      (environment: TINTLOOM_RESOURCES)
  --scale N           pixels per point of the written images, 1 to 8; default 2
  --screen WxH        size of the phone's screen in the window, in points, 320x240 to
                      8192x8192; default 320x568, or what a wide window leaves for it
  --no-preview        open the window without the preview beside the screen
  --catalogue         open the window on the catalogue
  --json              list, themes, check: print one JSON array
  --fix               check: mend what is found in the current choices, and print the rest
  --as NAME           import: keep it under this name instead of its own
  --replace           keep, import: take the place of a kept theme of that name; export: of
                      what is at PATH
  --undo              remove: put back what was removed or replaced last under that name
  --qr FILE           share: the PNG file to draw the text into, as a QR code
  --set KEY=VALUE     save: VALUE is a colour of 3, 6 or 8 hexadecimal digits, nothing to
                      remove the colour, or the label of an option; may be repeated
  --view VIEW         preview: the screen to draw; default both
  --eyes EYES         preview: draw it as other eyes see it, those that lack the red, the
                      green or the blue cones, or that see greys alone; default normal
  --out FILE          preview: the PNG file to write; - is standard output
  --help              print this text
  --version           print the version

Exit status: 0 done, 1 something could not be read or written, 2 wrong usage, 3 check
has found something, 69 no display for a window.
)"_s;

const QMap<QString, PreviewView> views{{u"conversation"_s, PreviewView::Conversation},
                                       {u"list"_s, PreviewView::MessageList},
                                       {u"both"_s, PreviewView::Both}};
const QMap<QString, Eyes> eyes{{u"normal"_s, Eyes::Normal},
                               {u"protan"_s, Eyes::Protan},
                               {u"deutan"_s, Eyes::Deutan},
                               {u"tritan"_s, Eyes::Tritan},
                               {u"grey"_s, Eyes::Grey}};

/// Takes the parsed arguments apart. The first thing wrong is kept, the rest then means nothing.
class Reader
{
public:
    explicit Reader(const QCommandLineParser &parser) : _parser(parser) {}

    QString folder(const QString &option, const char *variable, const QString &standard)
    {
        if (_parser.isSet(option)) {
            const QString value = _parser.value(option);
            if (value.isEmpty())
                fail(u"--%1 needs the name of a folder"_s.arg(option));
            return absolute(value);
        }
        const QString value = qEnvironmentVariable(variable);
        return absolute(value.isEmpty() ? standard : value);
    }

    CommandLine::Command command()
    {
        const QStringList words = _parser.positionalArguments();
        if (words.isEmpty())
            return CommandLine::Command::Window;
        using enum CommandLine::Command;
        static const QMap<QString, CommandLine::Command> commands{
            {u"list"_s, List},       {u"set"_s, Set},         {u"save"_s, Save},
            {u"restore"_s, Restore}, {u"themes"_s, Themes},   {u"install"_s, Install},
            {u"edit"_s, Edit},       {u"preview"_s, Preview}, {u"check"_s, Check},
            {u"keep"_s, Keep},       {u"rename"_s, Rename},   {u"duplicate"_s, Duplicate},
            {u"remove"_s, Remove},   {u"import"_s, Import},   {u"export"_s, Export},
            {u"share"_s, Share},
        };
        const auto command = commands.constFind(words[0]);
        // What a desktop hands over to be opened is an absolute path, and so no command.
        if (command == commands.cend() && QFileInfo::exists(words[0])) {
            if (words.size() > 1)
                fail(u"unexpected argument '%1'"_s.arg(words[1]));
            return Window;
        }
        if (command == commands.cend()) {
            fail(u"unknown command '%1'; there are %2"_s.arg(
                words[0], QStringList(commands.keys()).join(", "_L1)));
            return Window;
        }
        if (*command == Set) {
            if (words.size() < 2)
                fail(u"'set' needs an edit KEY=VALUE; 'tintloom list' shows the keys"_s);
            return Set;
        }
        const bool needsTwo = *command == Rename || *command == Duplicate;
        const bool needsTheme = needsTwo || *command == Install || *command == Edit ||
                                *command == Keep || *command == Remove;
        const bool needsPath = *command == Import || *command == Export;
        const bool mayHaveTheme = needsTheme || needsPath || *command == Preview ||
                                  *command == Check || *command == Share;
        const qsizetype expected = needsTwo || *command == Export ? 3 : mayHaveTheme ? 2 : 1;
        if (words.size() > expected)
            fail(u"unexpected argument '%1'"_s.arg(words[expected]));
        else if (words.size() < 2 && needsPath)
            fail(*command == Import ? u"'import' needs the path of a theme, or a shared text"_s
                                    : u"'export' needs the path to write to"_s);
        else if (words.size() < 2 && needsTheme)
            fail(u"'%1' needs the name of a theme; 'tintloom themes' shows them"_s.arg(words[0]));
        else if (words.size() < 3 && needsTwo)
            fail(u"'%1' needs the new name as well"_s.arg(words[0]));
        return *command;
    }

    /// What `set` is to do.
    QStringList edits() const { return _parser.positionalArguments().sliced(1); }
    /// What the commands that take a theme are to work on; before the place of an export.
    QString theme(CommandLine::Command command) const
    {
        const QStringList words = _parser.positionalArguments();
        const bool isPlace = command == CommandLine::Command::Export && words.size() < 3;
        return isPlace ? QString() : words.value(1);
    }

    QString file(const QString &option)
    {
        const QString value = _parser.value(option);
        if (_parser.isSet(option) && value.isEmpty())
            fail(u"--%1 needs the name of a file"_s.arg(option));
        return value.isEmpty() ? value : absolute(value);
    }

    /// What the window is to open, if anything.
    QString fileToOpen() const
    {
        const QStringList words = _parser.positionalArguments();
        return words.isEmpty() ? QString() : absolute(words[0]);
    }

    QString place() const { return absolute(_parser.positionalArguments().constLast()); }

    /// What `rename`, `duplicate` and `import` are to call it.
    QString newName(CommandLine::Command command)
    {
        if (command != CommandLine::Command::Import)
            return _parser.positionalArguments().value(2);
        const QString name = _parser.value(u"as"_s);
        if (_parser.isSet(u"as"_s) && name.isEmpty())
            fail(u"--as needs a name"_s);
        return name;
    }

    void onlyWith(bool allowed, const QString &option, const QString &command)
    {
        if (_parser.isSet(option) && !allowed)
            fail(u"--%1 belongs to %2"_s.arg(option, command));
    }

    template <typename Value>
    Value oneOf(const QString &option, const QMap<QString, Value> &values, Value standard)
    {
        if (!_parser.isSet(option))
            return standard;
        const QString text = _parser.value(option);
        if (!values.contains(text)) {
            const QStringList near = nearestNames(text, values.keys());
            fail(u"unknown %1 '%2'; %3 %4"_s.arg(
                option, text, near.isEmpty() ? u"there are"_s : u"near it:"_s,
                (near.isEmpty() ? values.keys() : near).join(", "_L1)));
        }
        return values.value(text, standard);
    }

    QString outFile()
    {
        const QString file = _parser.value(u"out"_s);
        if (file.isEmpty())
            fail(u"'preview' needs --out FILE"_s);
        return file == "-"_L1 ? file : absolute(file);
    }

    double scale(double standard)
    {
        if (!_parser.isSet(u"scale"_s))
            return standard;
        bool isNumber = false;
        const QString text = _parser.value(u"scale"_s);
        const double scale = QLocale::c().toDouble(text, &isNumber);
        if (!isNumber || !(scale >= 1.0 && scale <= 8.0))
            fail(u"--scale '%1' is not a number from 1 to 8"_s.arg(text));
        return scale;
    }

    std::optional<QSizeF> screen()
    {
        if (!_parser.isSet(u"screen"_s))
            return std::nullopt;
        static const QRegularExpression pattern(u"\\A([0-9]{3,4})x([0-9]{3,4})\\z"_s);
        const QString text = _parser.value(u"screen"_s);
        const QRegularExpressionMatch match = pattern.match(text);
        const int width = match.captured(1).toInt();
        const int height = match.captured(2).toInt();
        if (width < 320 || height < 240 || width > 8192 || height > 8192)
            fail(u"--screen '%1' is not a size from 320x240 to 8192x8192"_s.arg(text));
        return QSizeF(width, height);
    }

    void fail(const QString &problem)
    {
        if (_problem.isEmpty())
            _problem = problem;
    }

    const QString &problem() const { return _problem; }

private:
    static QString absolute(const QString &path)
    {
        return QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    }

    const QCommandLineParser &_parser;
    QString _problem;
};

CommandLine::Outcome refusal(const QString &problem)
{
    return {{}, u"tintloom: %1\nTry 'tintloom --help'.\n"_s.arg(problem), usageError};
}
} // namespace

CommandLine::Outcome CommandLine::parse(const QStringList &arguments)
{
    QCommandLineParser parser;
    for (const auto &name : {u"help"_s, u"version"_s, u"json"_s, u"catalogue"_s, u"no-preview"_s,
                             u"fix"_s, u"replace"_s, u"undo"_s})
        parser.addOption(QCommandLineOption(name));
    for (const auto &name :
         {u"package-root"_s, u"documents"_s, u"resources"_s, u"scale"_s, u"screen"_s, u"set"_s,
          u"view"_s, u"eyes"_s, u"out"_s, u"as"_s, u"qr"_s})
        parser.addOption(QCommandLineOption(name, {}, u"value"_s));
    if (!parser.parse(arguments))
        return refusal(parser.errorText());
    if (parser.isSet(u"help"_s))
        return {{}, help, 0};
    if (parser.isSet(u"version"_s))
        return {{}, u"Tintloom " TINTLOOM_VERSION "\n"_s, 0};

    Reader reader(parser);
    Options options;
    options.command = reader.command();
    reader.onlyWith(options.command == Command::List || options.command == Command::Themes ||
                        options.command == Command::Check,
                    u"json"_s, u"'list', 'themes' and 'check'"_s);
    reader.onlyWith(options.command == Command::Check, u"fix"_s, u"'check'"_s);
    reader.onlyWith(options.command == Command::Remove, u"undo"_s, u"'remove'"_s);
    for (const auto &name : {u"catalogue"_s, u"no-preview"_s})
        reader.onlyWith(options.command == Command::Window, name, u"the window"_s);
    reader.onlyWith(options.command == Command::Save, u"set"_s, u"'save'"_s);
    for (const auto &name : {u"view"_s, u"eyes"_s, u"out"_s})
        reader.onlyWith(options.command == Command::Preview, name, u"'preview'"_s);
    reader.onlyWith(options.command == Command::Import, u"as"_s, u"'import'"_s);
    reader.onlyWith(options.command == Command::Keep || options.command == Command::Import ||
                        options.command == Command::Export,
                    u"replace"_s, u"'keep', 'import' and 'export'"_s);
    reader.onlyWith(options.command == Command::Share, u"qr"_s, u"'share'"_s);
    options.packageRoot =
        reader.folder(u"package-root"_s, "TINTLOOM_PACKAGE_ROOT", defaultPackageRoot());
    options.documents =
        reader.folder(u"documents"_s, "TINTLOOM_DOCUMENTS",
                      QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
    options.resources = reader.folder(u"resources"_s, "TINTLOOM_RESOURCES",
                                      besideProgram(QStringLiteral(TINTLOOM_DATA)));
    options.scale = reader.scale(options.scale);
    options.screen = reader.screen();
    options.theme = reader.theme(options.command);
    options.newName = reader.newName(options.command);
    options.qr = reader.file(u"qr"_s);
    if (options.command == Command::Export)
        options.out = reader.place();
    if (options.command == Command::Window)
        options.open = reader.fileToOpen();
    options.catalogue = parser.isSet(u"catalogue"_s);
    options.preview = !parser.isSet(u"no-preview"_s);
    options.json = parser.isSet(u"json"_s);
    options.fix = parser.isSet(u"fix"_s);
    options.replace = parser.isSet(u"replace"_s);
    options.undo = parser.isSet(u"undo"_s);
    if (options.fix && !options.theme.isEmpty())
        reader.fail(u"--fix mends the current choices, not '%1'; 'tintloom edit' makes a theme "
                    "the current choices"_s.arg(options.theme));
    options.edits = options.command == Command::Set ? reader.edits() : parser.values(u"set"_s);
    if (options.command == Command::Preview) {
        options.view = reader.oneOf(u"view"_s, views, options.view);
        options.eyes = reader.oneOf(u"eyes"_s, eyes, options.eyes);
        options.out = reader.outFile();
    }
    for (const QString &edit : std::as_const(options.edits)) {
        if (!edit.contains(u'='))
            reader.fail(u"'%1' is not KEY=VALUE"_s.arg(edit));
    }
    if (!reader.problem().isEmpty())
        return refusal(reader.problem());
    return {options, {}, 0};
}

QString CommandLine::defaultPackageRoot(const QString &onPhone)
{
    const QFileInfo phone(onPhone);
    if (phone.dir().exists())
        return onPhone;
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) + u'/' +
           phone.fileName();
}
