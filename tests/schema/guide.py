"""guide.py SCHEMAS GUIDE

The commands in the console blocks of GUIDE print what is shown below them, for its first block of XML as
ticket.xml; that block alone is refused. Commands of jing are left out where it is not installed. Paths
in GUIDE are those of SCHEMAS, and settings are JSON.
"""
import json
import os
import re
import shutil
import subprocess
import sys
import tempfile

from snippets import refused_blocks

INSTALLED = "/usr/share/xml/velnorxmltoimg/schema/1.0"
HOME = "/home/kim"


def blocks(guide, language):
    return re.findall(rf"^```{language}\n(.*?)^```$", guide, re.MULTILINE | re.DOTALL)


def commands(block):
    """Each command of the block with the lines that it prints."""
    for part in re.split(r"^\$ ", block, flags=re.MULTILINE)[1:]:
        command, *shown = part.splitlines()
        yield command, shown


def differs(printed, shown):
    """A shown line that ends with dots shows the beginning."""
    if len(printed) != len(shown):
        return True
    return any(not line.startswith(wanted[:-3]) if wanted.endswith("...") else line != wanted
               for line, wanted in zip(printed, shown))


def run(command, settings, schemas, folder):
    """The lines that the command prints, as the guide would show them."""
    result = subprocess.run(
        ["bash", "-c", "\n".join([*settings, command]).replace(INSTALLED, schemas)], cwd=folder,
        stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
        check=False)
    return result.stdout.replace(folder, HOME).splitlines()


def wrong_commands(guide, schemas, folder):
    for block in blocks(guide, "console"):
        settings = []
        for command, shown in commands(block):
            if command.startswith("export "):
                settings.append(command)
                continue
            if command.startswith("jing ") and shutil.which("jing") is None:
                continue
            printed = run(command, settings, schemas, folder)
            if differs(printed, shown):
                yield f"{command}\nprints\n" + "\n".join(printed)


def wrong_documents(path, schemas, folder):
    refused = list(refused_blocks(schemas, path, folder))
    if not refused or "block 1 is refused" not in refused[0]:
        yield "the first document is accepted"
    yield from refused[1:]


def wrong_paths(guide, schemas):
    for name in set(re.findall(rf"{INSTALLED}/([\w.]+)", guide)):
        if not os.path.exists(os.path.join(schemas, name)):
            yield f"{name} does not exist"


def main(schemas, path):
    with open(path, encoding="utf-8") as text:
        guide = text.read()
    for block in blocks(guide, "json"):
        json.loads("{" + block + "}")
    with tempfile.TemporaryDirectory() as folder:
        with open(os.path.join(folder, "ticket.xml"), "w", encoding="utf-8") as document:
            document.write(blocks(guide, "xml")[0])
        wrong = list(wrong_commands(guide, os.path.realpath(schemas), folder))
        wrong += wrong_documents(path, schemas, folder)
    return "\n".join(wrong + list(wrong_paths(guide, schemas)))


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]) or 0)
