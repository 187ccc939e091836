"""Which documents a schema accepts, by xmllint."""
import os
import subprocess


def accepted(schema, documents):
    """Those of the documents that are valid by the schema, which is a .rng or a .xsd file."""
    option = "--schema" if schema.endswith(".xsd") else "--relaxng"
    result = subprocess.run(
        [os.environ["XMLLINT"], "--noout", "--nonet", "--noent", option, schema, *documents],
        stdin=subprocess.DEVNULL, capture_output=True, text=True, check=False)
    end = " validates"
    lines = result.stderr.splitlines()
    valid = {line[:-len(end)] for line in lines if line.endswith(end)}
    judged = valid | {line[:-len(" fails to validate")] for line in lines
                      if line.endswith(" fails to validate")}
    if judged != set(documents):
        raise SystemExit(f"{schema}: {result.stderr}")
    return valid


def accepted_by_both(schema, documents):
    """As `accepted`, for SCHEMA.rng. What that accepts, SCHEMA.xsd must accept too."""
    valid = accepted(schema + ".rng", documents)
    stricter = valid - accepted(schema + ".xsd", documents)
    if stricter:
        raise SystemExit("refused by the XSD alone:\n" + "\n".join(sorted(stricter)))
    return valid
