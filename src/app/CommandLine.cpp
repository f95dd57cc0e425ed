#include "app/CommandLine.h"

#include "app/HelpText.h"
#include "app/NearestNames.h"
#include "delivery/PhoneAddress.h"
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

const QMap<QString, PreviewView> views{{u"conversation"_s, PreviewView::Conversation},
                                       {u"list"_s, PreviewView::MessageList},
                                       {u"both"_s, PreviewView::Both}};
const QMap<QString, Eyes> eyes{{u"normal"_s, Eyes::Normal},
                               {u"protan"_s, Eyes::Protan},
                               {u"deutan"_s, Eyes::Deutan},
                               {u"tritan"_s, Eyes::Tritan},
                               {u"grey"_s, Eyes::Grey}};

/// What follows a command that is no option.
struct Form {
    QString name;
    CommandLine::Command command;
    QStringList needs;  // at least these words
    qsizetype most = 0; // words
};

const QString kept = u"the name of a theme; 'tintloom themes' shows them"_s;
const QString newName = u"the new name as well"_s;
constexpr qsizetype any = 1 << 20;
using enum CommandLine::Command;
const Form forms[] = {
    {u"list"_s, List, {}},
    {u"set"_s, Set, {u"an edit KEY=VALUE; 'tintloom list' shows the keys"_s}, any},
    {u"save"_s, Save, {}},
    {u"restore"_s, Restore, {}},
    {u"themes"_s, Themes, {}},
    {u"install"_s, Install, {kept}, 1},
    {u"edit"_s, Edit, {kept}, 1},
    {u"preview"_s, Preview, {}, 1},
    {u"check"_s, Check, {}, 1},
    {u"keep"_s, Keep, {kept}, 1},
    {u"rename"_s, Rename, {kept, newName}, 2},
    {u"duplicate"_s, Duplicate, {kept, newName}, 2},
    {u"remove"_s, Remove, {kept}, 1},
    {u"import"_s, Import, {u"the path of a theme, or a shared text"_s}, 1},
    {u"export"_s, Export, {u"the path to write to"_s}, 2},
    {u"share"_s, Share, {}, 1},
    {u"send"_s, Send, {u"a phone [USER@]HOST[:PORT]"_s}, 2},
    {u"palette"_s, Palette, {u"a picture"_s}, 1},
    {u"generate"_s, Generate, {}},
};

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
        const auto form = std::ranges::find(forms, words[0], &Form::name);
        const bool isKnown = form != std::end(forms);
        // What a desktop hands over to be opened is an absolute path, and so no command.
        if (!isKnown && QFileInfo::exists(words[0])) {
            if (words.size() > 1)
                fail(u"unexpected argument '%1'"_s.arg(words[1]));
            return CommandLine::Command::Window;
        }
        if (!isKnown) {
            QStringList names;
            for (const Form &known : forms)
                names += known.name;
            names.sort();
            fail(u"unknown command '%1'; there are %2"_s.arg(words[0], names.join(", "_L1)));
            return CommandLine::Command::Window;
        }
        const qsizetype given = words.size() - 1;
        if (given < form->needs.size())
            fail(u"'%1' needs %2"_s.arg(words[0], form->needs[given]));
        else if (given > form->most)
            fail(u"unexpected argument '%1'"_s.arg(words[form->most + 1]));
        return form->command;
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

    /// What `send` is to send, and where.
    void send(CommandLine::Options &options)
    {
        const QStringList words = _parser.positionalArguments().sliced(1);
        options.theme = words.size() > 1 ? words[0] : QString();
        if (const auto phone = PhoneAddress::parse(words.last()))
            options.phone = *phone;
        else
            fail(u"'%1' is no [USER@]HOST[:PORT]"_s.arg(words.last()));
        options.folder = _parser.isSet(u"folder"_s) ? _parser.value(u"folder"_s)
                                                    : ThemeLocations::phonePackageRoot();
        if (options.folder.isEmpty())
            fail(u"--folder needs the name of a folder"_s);
        if (_parser.isSet(u"name"_s))
            options.name = _parser.value(u"name"_s);
        options.acceptHost = _parser.value(u"accept-host"_s);
        if (_parser.isSet(u"accept-host"_s) && !options.acceptHost.startsWith("SHA256:"_L1))
            fail(u"--accept-host '%1' is no fingerprint SHA256:..."_s.arg(options.acceptHost));
        options.back = _parser.isSet(u"back"_s);
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
    for (const auto &name :
         {u"help"_s, u"version"_s, u"json"_s, u"catalogue"_s, u"no-preview"_s, u"fix"_s,
          u"replace"_s, u"undo"_s, u"back"_s, u"light"_s, u"dark"_s, u"dry-run"_s})
        parser.addOption(QCommandLineOption(name));
    for (const auto &name :
         {u"package-root"_s, u"documents"_s, u"resources"_s, u"scale"_s,       u"screen"_s,
          u"set"_s,          u"view"_s,      u"eyes"_s,      u"out"_s,         u"as"_s,
          u"qr"_s,           u"folder"_s,    u"name"_s,      u"accept-host"_s, u"color"_s,
          u"picture"_s,      u"seed"_s,      u"base"_s,      u"harmony"_s,     u"strength"_s,
          u"lock"_s})
        parser.addOption(QCommandLineOption(name, {}, u"value"_s));
    if (!parser.parse(arguments))
        return refusal(parser.errorText());
    if (parser.isSet(u"help"_s))
        return {{}, helpText(), 0};
    if (parser.isSet(u"version"_s))
        return {{}, u"Tintloom " TINTLOOM_VERSION "\n"_s, 0};

    Reader reader(parser);
    Options options;
    options.command = reader.command();
    reader.onlyWith(options.command == Command::List || options.command == Command::Themes ||
                        options.command == Command::Check || options.command == Command::Palette,
                    u"json"_s, u"'list', 'themes', 'check' and 'palette'"_s);
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
    for (const auto &name : {u"folder"_s, u"name"_s, u"accept-host"_s, u"back"_s})
        reader.onlyWith(options.command == Command::Send, name, u"'send'"_s);
    reader.onlyWith(options.command == Command::Generate || options.command == Command::Save,
                    u"picture"_s, u"'generate' and 'save'"_s);
    for (const auto &name : {u"color"_s, u"seed"_s, u"base"_s, u"light"_s, u"dark"_s, u"harmony"_s,
                             u"strength"_s, u"lock"_s, u"dry-run"_s})
        reader.onlyWith(options.command == Command::Generate, name, u"'generate'"_s);
    options.packageRoot =
        reader.folder(u"package-root"_s, "TINTLOOM_PACKAGE_ROOT", defaultPackageRoot());
    options.documents =
        reader.folder(u"documents"_s, "TINTLOOM_DOCUMENTS",
                      QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
    options.resources = reader.folder(u"resources"_s, "TINTLOOM_RESOURCES",
                                      besideProgram(QStringLiteral(TINTLOOM_DATA)));
    options.scale = reader.scale(options.scale);
    options.screen = reader.screen();
    options.theme = options.command == Command::Generate ? parser.value(u"base"_s)
                                                         : reader.theme(options.command);
    options.newName = reader.newName(options.command);
    options.qr = reader.file(u"qr"_s);
    if (options.command == Command::Export)
        options.out = reader.place();
    if (options.command == Command::Palette)
        options.picture = options.theme;
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
    if (options.command == Command::Save)
        options.pictures = parser.values(u"picture"_s);
    if (options.command == Command::Preview) {
        options.view = reader.oneOf(u"view"_s, views, options.view);
        options.eyes = reader.oneOf(u"eyes"_s, eyes, options.eyes);
        options.out = reader.outFile();
    }
    if (options.command == Command::Send && reader.problem().isEmpty())
        reader.send(options);
    if (options.command == Command::Generate)
        options.generate = GenerateOptions::read(
            parser, [&reader](const QString &problem) { reader.fail(problem); });
    for (const QString &edit : std::as_const(options.edits)) {
        if (!edit.contains(u'='))
            reader.fail(u"'%1' is not KEY=VALUE"_s.arg(edit));
    }
    for (const QString &edit : std::as_const(options.pictures))
        if (edit.section(u'=', 1).isEmpty())
            reader.fail(u"--picture '%1' is not KEY=FILE"_s.arg(edit));
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
