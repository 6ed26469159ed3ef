"""Writes out what the comments of the public headers leave to their surroundings, so that a page shows it at every declaration.

The headers are written for their readers, who are not told everything twice. The rules:

- A comment holds for all functions that follow it up to the next empty line. Of its parameters each function has its own.
- What a function's comment does not say, the head of its group says (`@defgroup ... @{`), and else the head of the file:
  parameters by name, `@par Threads`, `@since`. `@return` is inherited by functions that give int, BOOL or bool.
- `@like Name`: what neither the comment nor the head of its group says is as of the function `Name`. In the head of a group,
  `@like Prefix*` does so for each function whose name with the prefix is documented. A head's `@return` that begins with
  "0 also" is added to theirs.
- Types, values and macros have `@since` from the head of the file.
"""

import re

COMMAND = re.compile(r"\s*@(param|return|par Threads|since|see)\b ?")
LIKE = re.compile(r"\s*@like (\S+)")
FUNCTION = re.compile(r"(?:\s*template <[^;{}()]*?>\s)?[^;{}()=]*?\b(operator\s*\S+?|~?\w+)\(")


class Comment:
    """A comment taken apart: its text, and its parts by (command, name of the parameter)."""

    def __init__(self, lines):
        self.text, self.parts = [], {}
        into = self.text
        for line in lines:
            like = LIKE.search(line)
            if like:
                self.parts["like", ""] = [like[1]]
                line = LIKE.sub("", line)
                if not line.strip():
                    continue
            command = COMMAND.match(line)
            if command:
                rest, name = line[command.end():], ""
                if command[1] == "param":
                    name, _, rest = rest.partition(" ")
                into = self.parts.setdefault((command[1], name), [])
                line = rest
            elif not line.strip() or line.lstrip().startswith("@"):
                into = self.text
            into.append(line.strip() if into is not self.text else line)

    def part(self, command, name=""):
        return " ".join(self.parts.get((command, name), [])).strip()

    def names(self):
        return [name for command, name in self.parts if command == "param"]


class Function:
    """What a declaration says of itself: name, whether its result is one of done and refused, names of parameters."""

    def __init__(self, declaration):
        match = FUNCTION.match(declaration)
        self.name = match[1] if match else None
        self.parameters = []
        if not match:
            return
        self.is_done_or_refused = bool(re.search(r"\b(int|BOOL|bool)\s+$", declaration[: match.start(1)]))
        depth, item = 0, ""
        for character in declaration[match.end():]:
            depth += (character in "(<[{") - (character in ")>]}")
            if depth < 0 or (character == "," and depth == 0):
                self.add(item)
                item = ""
                if depth < 0:
                    break
            else:
                item += character
        else:
            self.add(item)

    def add(self, item):
        words = re.findall(r"\w+", re.sub(r"\[\w*\]$", "", item.partition("=")[0].strip()))
        if words and words != ["void"]:
            self.parameters.append(words[-1])


def comments_of(text):
    """(begin, end, lines) of each documenting comment: /** ... */ or lines ///, not those behind a declaration."""
    for match in re.finditer(r"/\*\*(?!<)(.*?)\*/|(?:^[ \t]*///(?!<)[^\n]*\n)+", text, re.DOTALL | re.MULTILINE):
        body = match[1] if match[1] is not None else match[0]
        mark = r"^[ \t]*\* ?" if match[1] is not None else r"^[ \t]*/// ?"
        yield match.start(), match.end(), re.sub(mark, "", body, flags=re.MULTILINE).strip().split("\n")


def declarations_after(text, begin):
    """The declarations from a place up to the next empty line, comment or brace: their texts."""
    block = re.match(r"[ \t]*\n?(?:[^\n]*\S[^\n]*\n)*", text[begin:])[0]
    while block.strip():
        end = re.match(r"\s*(?:[^;{/#]|/(?![*/]))*[;{]", block)
        if not end or not Function(end[0]).name or re.match(r"\s*(?:typedef|struct|class|enum)\b", end[0]):
            return
        yield end[0]
        if end[0].endswith("{"):
            return
        block = block[end.end():]


def written(words):
    return "/** " + words.replace("\n", "\n * ") + "\n */\n"


def of_type(comment, file):
    since, see = comment.part("since") or file.part("since"), comment.part("see")
    return "\n".join([*comment.text, "", f"@since {since}" if since else "", f"@see {see}" if see else ""])


class Place:
    """A function's comment and where it stands: what it says, what its group and its file say, what it is like."""

    def __init__(self, declaration, comment, group, file):
        self.declaration, self.function = declaration.strip("\n"), Function(declaration)
        self.comment, self.group, self.file = comment, group, file
        self.like = None

    def find_like(self, places):
        prefix = self.group.part("like").removesuffix("*")
        self.name = self.comment.part("like") or prefix + self.function.name
        self.like = places.get(self.name) if self.name != self.function.name else None

    def parameter(self, name):
        own = self.comment.part("param", name) or self.group.part("param", name)
        return own or (self.like.parameter(name) if self.like else "")

    def surroundings(self, command):
        return self.comment.part(command) or self.group.part(command) or self.file.part(command)

    def result(self):
        own, group = self.comment.part("return"), self.group.part("return")
        if own or not self.function.is_done_or_refused:
            return own or (self.like.result() if self.like else "")
        like = self.like.result() if self.like else ""
        return f"{like}; {group}" if like and group.startswith("0 also") else like or group

    def text(self):
        own = "\n".join(self.comment.text).strip()
        if not self.like:
            return own
        return f"{own}\n\n{self.like.details()}".strip() if own else self.like.text()

    def details(self):
        """The text after its first sentence."""
        sentence = re.match(r".*?[.](?=\s|$)", self.text(), re.DOTALL)
        return self.text()[sentence.end():].strip() if sentence else ""

    def __str__(self):
        """The declaration under a comment with all of its parts."""
        parameters = [(name, self.parameter(name)) for name in self.function.parameters]
        see = ", ".join(filter(None, [self.like and self.name, self.comment.part("see")]))
        comment = [
            self.text(),
            "",
            *(f"@param {name} {words}" for name, words in parameters if words),
            f"@return {self.result()}" if self.result() else "",
            f"@see {see}" if see else "",
            f"@par Threads\n{self.surroundings('par Threads')}\n",
            f"@since {self.surroundings('since')}",
        ]
        return written("\n".join(comment)) + self.declaration + "\n"


class Header:
    """A header cut into pieces: texts that stay, or are written out already, and a Place for each function."""

    def __init__(self, path, text):
        self.path, self.pieces, self.problems = path, [], []
        file = group = nothing = Comment([])
        at = 0
        for begin, end, lines in comments_of(text):
            if begin < at:
                continue
            comment = Comment(lines)
            declarations = list(declarations_after(text, end))
            self.pieces.append(text[at:begin])
            at = end
            if lines[0].startswith("@file"):
                file = comment
                self.pieces.append(text[begin:end])
            elif lines[0].startswith(("@defgroup", "@addtogroup")):
                group = comment
                self.pieces.append(written("\n".join(comment.text)))
            elif lines[0].startswith("@}"):
                group = nothing
                self.pieces.append(written("@}"))
            elif declarations:
                for declaration in declarations:
                    self.pieces.append(Place(declaration, comment, group, file))
                    at = text.index(declaration, at) + len(declaration)
                known = {name for declaration in declarations for name in Function(declaration).parameters}
                strangers = [name for name in comment.names() if name not in known]
                first = Function(declarations[0]).name
                self.problems += [f"{path}: {first}: there is no parameter {stranger}" for stranger in strangers]
            else:
                self.pieces.append(written(of_type(comment, file)))
        self.pieces.append(text[at:])

    def places(self):
        return [piece for piece in self.pieces if isinstance(piece, Place)]

    def __str__(self):
        return "".join(map(str, self.pieces))


def expand(texts):
    """{path: text} of all headers -> ({path: text}, what is wrong with their comments)."""
    headers = [Header(path, text) for path, text in texts.items()]
    places = [place for header in headers for place in header.places()]
    # Functions of C have one name each; members of classes are not referred to.
    known = {place.function.name: place for header in headers if header.path.endswith(".h") for place in header.places()}
    for place in places:
        place.find_like(known)
    return {header.path: str(header) for header in headers}, sum((header.problems for header in headers), [])
