# SPDX-License-Identifier: GPL-3.0-or-later
"""Finds what exports note or warn of in words that no form of the window's has. Wherever a note is made, the words of that function
are looked at; where it is only passed on, this knows which functions make it, and anything else is a fault."""
import re

FOLDERS = ("apps/ExportCore", "multimediacore/src", "editor/src/library")
LITERAL = r'"(?:[^"\\\n]|\\.)*"'
RUN = re.compile(rf"{LITERAL}(?:\s*{LITERAL})*")
CALLS = re.compile(r"(?<![\w:])(?:Note|Report|warn|(?:context\.)?tell|context\.error|(?:notes|warnings|damage|troubles|findings)\.(?:push|emplace)_back)\(|"
                   r"(?:->|\.)note\(|\bfound\((?=Finding)|\b(?:notes|warnings)\s*<<")
# Those have words of their own: refusals, and what is translated where it is said.
OTHERS = re.compile(r"\b(?:KESTRA_THROW|Fail|Refuse|RefuseChoice|refuse|tr)\(")
# What is compared or looked up is not said.
LOOKED_UP = re.compile(rf"(?:[=!]= |\[|\b(?:text|has|flag|whole)\((?:\w+, )?){LITERAL}|{LITERAL}(?= [=!]= )")
# What is called for names, numbers and times, which are the same in every language, or asks something.
NAMES = {"to_string", "string", "fromStdString", "arg", "ToUtf8", "GetPath", "NameOf", "GetFiles", "Seconds", "IsEmpty", "IsTopFieldFirst",
         "GetDetails", "GetLength", "size", "empty", "substr", "lround", "max", "str", "format", "Value", "text", "OtioNode", "pointer", "pointerOf",
         "SamplesToTime", "message", "generic_category", "isTooDeep", "numbersOf", "exactRate", "GetParseError_En", "GetParseError",
         "placeOf", "GetErrorOffset", "lackOf", "Ticks"}
# What is passed on, as an expression in a file, and what is called for words: the functions that say them. None of those where
# a note is made that is found itself, or what is no note.
RELAYS = {
    "ExportRun.cpp: QString::fromStdString(warning)": ["PresetStorage.cpp: overlayUsersOwn", "InputOpening.cpp: openTimeline"],
    "ExportRun.cpp: QString::fromStdString(note)": [],
    # The window orders no loudness.
    "ExportRun.cpp: QString::fromStdString(gain.note)": [],
    "ExportRunCourse.cpp: QString::fromStdString(text)": [],
    "ExportRunEnd.cpp: QString::fromStdString(hung)": ["ExportRunEnd.cpp: hungReads", "InputOpening.cpp: step"],
    "ExportRunEnd.cpp: QString::fromStdString(sentence)": ["DamageText.cpp: damageText"],
    "ExportRunEnd.cpp: QString::fromStdString(left)": [],
    "Losses.cpp: QString::fromStdString(note)": ["SquarePixels.cpp: note", "FirstPictures.cpp: noteOnSize",
                                                 "FirstPictures.cpp: noteOnRate", "MixedDown.cpp: note"],
    "InputProgramme.cpp: left": ["LeftOut.cpp: of", "LeftOut.cpp: tagsOf"],
    "InputProgramme.cpp: text": ["LeftOut.cpp: of", "LeftOut.cpp: tagsOf"],
    "TimelineMedia.cpp: std::move(*finding)": ["TimelineMedia.cpp: findingOf", "TimelineMedia.cpp: troubleOf"],
    "TimelineMedia.cpp: Finding::Kind::Warning, name + shortage": ["MediaShortage.cpp: shortageOf", "MediaShortage.cpp: inWords"],
    "Thumbnails.cpp: index, picture": [],
    "TimelineOpening.cpp: std::move(finding)": [],
    "TimelineTrial.cpp: std::move(finding)": [],
    "TimelineTrial.cpp: {Finding::Kind::Error, {}, {}, why}": [],
    "TimelineTrial.cpp: findingOf(project, report)": [],
    "EditorProject.cpp: std::move(note)": [],
    "MediaPool.cpp: {{}, what}": [],
    "PictureStream.cpp: why": ["FirstPassDraft.cpp: HalfOf", "FirstPassDraft.cpp: WholeFrames"],
    "PictureTarget.cpp: note": ["RateNote.h: RateNote", "RateChooser.cpp: DescribeLeftOut"],
    "GeneratorSource.cpp: what": [],
    "MediaSource.cpp: what": [],
    "MediaSource.cpp: trouble": ["SubtitleReader.cpp: Finish"],
    "SequenceSource.h: what": [],
    "SequenceVideo.cpp: number, error.what()": [],
    "SequenceVideo.cpp: grid.Begin(FrameIndex(number)).Value(), what": [],
    "VideoDecodeStream.cpp: note": ["ColourNote.cpp: ColourNote", "ColourNote.cpp: ChangeText"],
    "VideoDecodeStream.cpp: duration, newcomer, true": ["Demuxer.cpp: GetNewcomer"],
    "VideoEncoderCore.cpp: *packet": [],
    "MediaProbe.cpp: {path, info.duration, newcomer, true}": ["Demuxer.cpp: GetNewcomer"],
    "MediaProbe.cpp: {path, 0, reason, !demuxer.GetTrouble().empty()}": ["FirstFrames.cpp: WhyMissing"],
    "FileTags.cpp: what": [],
    "OtioContext.h: Finding::Kind::Error, node, text": [],
    "OtioContext.h: Finding::Kind::Warning, node, text": [],
    "OtioText.cpp: OtioNode(rapidjson::Value()), text": [],
    "ZipMedia.cpp: entry, trouble": ["ZipMedia.cpp: makeFile"],
    "ZipMedia.cpp: *file.entry, trouble": ["ZipArchive.cpp: whyNot", "ZipArchive.cpp: unpack"],
    "textOf": [],
    # A number is chosen on the command line.
    "listed": [],
    "labelled": ["ClipsBetweenFrames.cpp: labelled"],
    "MissingCount": ["SequenceSource.cpp: MissingCount"],
    "FieldOrderText": ["FieldOrder.cpp: FieldOrderText"],
    "ShapeText": ["AudioDecodeStream.cpp: ShapeText"],
    "GetTrouble": ["Demuxer.cpp: Read"],
    "LossInWords": ["PixelLoss.cpp: LossInWords", "PixelLoss.cpp: AlphaLossInWords", "PixelLoss.cpp: BitsBecame"],
}
# Words of a format, and the one sentence of which two forms make one.
SPARED = {"fs", "fn", "The subtitles' language, "}


def without_comments(text):
    """Nor lines of the preprocessor and single letters; blanks stand in their place, so that nothing else moves."""
    others = rf"({LITERAL})|(?<![0-9a-fA-F])'(?:[^'\\\n]|\\.)'|//[^\n]*|^#(?:[^\n\\]|\\.)*$"
    return re.sub(others, lambda one: one.group(1) or re.sub(r"\S", " ", one.group(0)), text, flags=re.M | re.S)


def blocks_of(text):
    """Functions: what stands before their body, and where that begins and ends."""
    bare = re.sub(LITERAL, lambda one: "_" * len(one.group(0)), text)
    found, open_at, last = [], [], 0
    for place, sign in ((one.start(), one.group(0)) for one in re.finditer(r"[{};]", bare)):
        if sign == "{":
            header = bare[last:place].strip()
            isRoom = re.match(r"(?:inline )?namespace\b|(?:template <.*?>\s*)?(?:class|struct|enum|union|extern)\b[^()]*$", header, re.S)
            open_at.append((place, header, bool(isRoom)))
        elif sign == "}" and open_at:
            start, header, isRoom = open_at.pop()
            if not isRoom and all(room for _, _, room in open_at):
                found.append((header, start, place))
        last = place + 1
    return found


def behind(text, start):
    """What stands between a parenthesis that opens before `start` and its other one; up to a semicolon where none does."""
    bare = re.sub(LITERAL, lambda one: "_" * len(one.group(0)), text)
    depth = 0
    for place in range(start, len(bare)):
        depth += {"(": 1, "{": 1, ")": -1, "}": -1}.get(bare[place], 0)
        if depth < 0 or (depth == 0 and bare[place] == ";"):
            return text[start:place]
    return text[start:]


def without_others(body):
    while one := OTHERS.search(body):
        body = body[:one.start()] + body[one.end() + len(behind(body, one.end())):]
    return LOOKED_UP.sub("", body)


def literals_of(text):
    return [re.sub(r"\\(.)", r"\1", "".join(re.findall(r'"((?:[^"\\\n]|\\.)*)"', run))) for run in RUN.findall(text)]


def is_formed(literal, forms):
    """Whether a form has it, or forms have each of its parts."""
    def has(part):
        words = part.strip(" \"':;,.()")
        return not re.search("[A-Za-z]{2}", words) or words in forms
    return has(literal) or all(has(part) for part in re.split("[;,] ", literal))


def unformed(body, forms):
    return [literal for literal in literals_of(without_others(body)) if not is_formed(literal, forms)]


class Notes:
    """`relays` maps what is passed on ("File.cpp: expression", or the name of a function) to the functions ("File.cpp: name") that
    make it; `forms` is all forms in one text; `spared` are words that stand in such functions for something else."""

    def __init__(self, forms, relays, spared):
        self.forms, self.relays, self.spared = forms, relays, spared
        self.files, self.used, self.looked, self.faults, self.sites = {}, set(), set(), [], 0

    def read(self, top):
        for folder in FOLDERS:
            for path in sorted((top / folder).rglob("*")):
                if path.suffix in (".h", ".cpp"):
                    self.files[path.name] = self.files.get(path.name, "") + without_comments(path.read_text())

    def look_at(self, name, block):
        header, start, end = block
        if (name, start) in self.looked:
            return
        self.looked.add((name, start))
        for literal in unformed(self.files[name][start:end], self.forms):
            if literal in self.spared:
                self.used.add(literal)
            else:
                self.faults.append(f'{name}: no form has "{literal}", which is noted')
        for function in set(re.findall(r"\b([A-Za-z_]\w*)\(", self.files[name][start:end])) & set(self.relays):
            self.follow(function)

    def follow(self, key):
        self.used.add(key)
        for maker in self.relays[key]:
            name, function = maker.split(": ")
            blocks = [block for block in blocks_of(self.files.get(name, "")) if re.search(rf"\b{function}\(", block[0])]
            if not blocks:
                self.faults.append(f"{maker} is no function any more")
            for block in blocks:
                self.look_at(name, block)

    def look_at_site(self, name, block, argument):
        self.sites += 1
        self.look_at(name, block)
        words = literals_of(argument)
        said = " ".join(argument.split())
        if not words and "tr(" not in argument:
            if f"{name}: {said}" in self.relays:
                return self.follow(f"{name}: {said}")
            return self.faults.append(f"{name}: nobody knows which words are noted by {said}")
        for function in re.findall(r"([A-Za-z_]\w*)\(", re.sub(LITERAL, "", argument)):
            if function not in NAMES and function not in self.relays and function != "tr":
                self.faults.append(f"{name}: nobody knows which words {function}() notes")
        return None

    def find(self):
        for name, text in self.files.items():
            blocks = blocks_of(text)
            for call in CALLS.finditer(text):
                block = next((one for one in blocks if one[1] < call.start() < one[2]), None)
                argument = behind(text, call.end())
                isReport = not call.group(0).startswith("Report") or "," in argument
                if block and isReport:
                    self.look_at_site(name, block, argument)
        unused = (set(self.relays) | self.spared) - self.used
        return self.faults + [f"of no use any more: {one}" for one in sorted(unused)]


def faults(top, forms):
    notes = Notes("\n".join(forms), RELAYS, SPARED)
    notes.read(top)
    found = notes.find()
    return found if notes.sites > 100 else [f"only {notes.sites} places were found where something is noted"]


def self_test():
    def faults_in(source, forms="", relays=None):
        notes = Notes(forms, relays or {}, set())
        notes.files["A.cpp"] = without_comments(source)
        return notes.find()

    def noting(body):
        return "#include \"A.h\"\nnamespace A {\nnamespace {\nint x = 1;\n}\nvoid A::f() {\n" + body + "\n}\n} // namespace A\n"

    assert faults_in(noting('source->Note("it is " + std::to_string(n) + " long"); // "not said"'), "it is %1 long") == []
    assert faults_in(noting('source->Note("it is " + std::to_string(n) + " late");'), "it is %1 long") == ['A.cpp: no form has " late", which is noted']
    assert len(faults_in(noting('const std::string what = "new";\nsource->Note("it is " + what);'), "it is %1")) == 1
    assert faults_in(noting('if (codec == "opus")\nKESTRA_THROW(Refusal("no; such"));\nnotes.push_back("a; b");'), "a\nb") == []
    assert faults_in(noting('outcome.notes << tr("translated").arg(n);')) == []
    assert faults_in(noting("outcome.notes << what;")) == ["A.cpp: nobody knows which words are noted by what"]
    assert faults_in(noting('Note("a" + wordsOf(x));'), "a") == ["A.cpp: nobody knows which words wordsOf() notes"]
    helper = 'std::string wordsOf(int x) {\n    return "some words";\n}\n'
    relays = {"wordsOf": ["A.cpp: wordsOf"]}
    assert faults_in(helper + noting('Note("a" + wordsOf(x));'), "a\nsome words", relays) == []
    assert len(faults_in(helper + noting('Note("a" + wordsOf(x));'), "a", relays)) == 1
    assert len(faults_in(noting('Note("a");'), "a", relays)) == 1
