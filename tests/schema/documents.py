"""documents.py SCHEMA EXCEPTIONS DOCUMENT...

The schema accepts every document but those that EXCEPTIONS lists, and none of these.
"""
import sys

from checking import accepted_by_both


def listed(path):
    """The indented lines; a reason stands above them, at the margin."""
    with open(path, encoding="utf-8") as lines:
        return {line.strip() for line in lines if line.startswith(" ")}


def main(schema, exceptions, *documents):
    valid = accepted_by_both(schema, documents)
    expected = set(documents) - listed(exceptions)
    wrong = [f"{name} is refused" for name in sorted(expected - valid)]
    wrong += [f"{name} is listed, but accepted" for name in sorted(valid - expected)]
    wrong += [f"{name} is listed, but does not exist"
              for name in sorted(listed(exceptions) - set(documents))]
    return "\n".join(wrong)


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]) or 0)
