"""Finds names in late-bound code that the published interface has not: faults(code, library, known)."""

import re

NAME = r"[A-Za-z_]\w*"
ARGUMENTS = r"(?:\((?:[^()]|\([^()]*\))*\)|\[[^\]]*\])?"
# It takes up nothing, so that chains in the arguments of others are found too.
CHAIN = re.compile(rf"(?<![\w.$@\"'])(?=\$?({NAME})((?:\.{NAME}{ARGUMENTS})+))")
MEMBER = re.compile(rf"\.({NAME}){ARGUMENTS}")
ASSIGNMENT = re.compile(rf"(?:\bSet |\bvar |\bdynamic |\$|^\s*)({NAME})\s*=\s*(?=\$?{NAME}\.)", re.MULTILINE)
LOOP = re.compile(rf"\b(?:For Each|foreach \((?:\w+ )?\$?)\s*({NAME})\s+in\s+(?=\$?{NAME}\.)", re.IGNORECASE)
MADE = re.compile(rf"\$?\b({NAME})\s*=\s*.*(?:CreateObject|ComObject|GetTypeFromProgID|new VqDocumenti)")

DOCUMENTS = {"VqDocStampa", "VqDocFax", "VqDocPFax", "VqDocEmail", "VqDocPbl", "VqDocAnteprima"}
# Whose members are the languages' own.
FOREIGN = {"Activator", "COMException", "Console", "DateTime", "Err", "GC", "InteropServices", "Runtime", "System",
           "Type", "WScript", "_"}


class Names:
    """What the variables of a piece of code are: each the set of classes that it may be of."""

    def __init__(self, library, known):
        # Of the accessors of a property the one that gives a result says what it is.
        self.members = {coclass.name: {member.name: member.result for member in
                                       sorted(coclass.members, key=lambda member: member.result.kind != "None")}
                        for coclass in library.coclasses}
        self.known = {name.lower(): classes for name, classes in known.items()}
        self.enumerations = {described.name: {member.name for member in described.members}
                             for described in library.enumerations}

    def learn(self, code):
        """Takes the variables from the assignments and loops of the code, in their order."""
        for match in MADE.finditer(code):
            self.known[match[1].lower()] = {"VqDocumenti"}
        found = sorted([*ASSIGNMENT.finditer(code), *LOOP.finditer(code)], key=lambda match: match.start())
        for match in found:
            classes = self.result(CHAIN.match(code, match.end()))
            if match.re is LOOP:
                classes = self.step(classes, "Item") if classes else classes
            if classes:
                self.known[match[1].lower()] = classes

    def step(self, classes, name):
        """What a member of that name gives; None where no class has one. Automation knows no upper and lower case, and
        C# spells the accessors of a property with an index as methods."""
        name = re.sub(r"^[gs]et_", "", name).lower()
        results = [result for owner in classes for member, result in self.members[owner].items()
                   if member.lower() == name]
        if not results:
            return None
        if any(result.kind == "Object" for result in results):
            return set(self.members)
        return {result.name for result in results if result.kind == "Class"}

    def walk(self, chain):
        """Name and result of each step, to the first name that is not there."""
        classes = self.known.get(chain[1].lower())
        for name in MEMBER.findall(chain[2]):
            if not classes:
                return
            classes = self.step(classes, name)
            yield name, classes

    def result(self, chain):
        steps = list(self.walk(chain)) if chain else []
        return steps[-1][1] if steps else None

    def fault(self, chain):
        root = chain[1]
        if root in FOREIGN:
            return None
        if root in self.enumerations:
            name = MEMBER.match(chain[2])[1]
            return None if name in self.enumerations[root] else f"{root} has no {name}"
        if root.lower() not in self.known:
            return f"unknown object {root}"
        wrong = [name for name, classes in self.walk(chain) if classes is None]
        return f"no {wrong[0]} in {root}{chain[2]}" if wrong else None


def without_texts(code):
    """The code without comments and without texts, but for what is computed inside texts."""
    code = re.sub(r"^\s*(?:'[^'\n]*|//.*|#.*)$|(?:\s//|\s'|\s#) .*$", "", code, flags=re.MULTILINE)
    code = re.sub(r"\$?\"(?:[^\"\n]*)\"", lambda match: computed(match[0]), code)
    return re.sub(r"'[^'\n]*'", '""', code)


def computed(text):
    """What stands in $(...) of a text of PowerShell, in {...} of one of C#."""
    inside = re.findall(r"\$(\((?:[^()]|\((?:[^()]|\([^()]*\))*\))*\))", text)
    inside += re.findall(r"\{([^{}]*)\}", text) if text.startswith("$") else []
    return " ".join(['""', *inside])


def faults(code, library, known):
    names, code = Names(library, known), without_texts(code)
    names.learn(code)
    found = [names.fault(chain) for chain in CHAIN.finditer(code)]
    return [fault for fault in found if fault]


def count(code):
    """How many chains of members the code has."""
    return len(CHAIN.findall(without_texts(code)))
