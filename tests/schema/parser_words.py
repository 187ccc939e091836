"""The words of the parser, asked of the program parser_words."""
import json
import subprocess

# Texts of which a value of some kind takes some. The schema takes ASCII digits and XML's blanks alone.
SAMPLES = (
    "0", "1", "2", "3", "5", "-1", "+4", " 7 ", "\n7\t", "007", "-0", "360", "-360", "361", "-361",
    "2147483647", "2147483648", "-2147483648", "-2147483649", "99999999999999999999",
    "", " ", "-", "+", "*", "--5", "+ 5", "1 000", "1,000", "3.5", "3,5", "1e3", "0x10", "12px", "50%",
    "true", "yes", "NaN", "x", "\u0665", "1*", " 2 *", "2* ", "-1*", "+3*", "1.5*", "x*", "*1", "1**", "Auto",
    " Auto ", "auto", "AUTO", "Auto*", "1,2,3,4", " 1 , -2,\n+3 ,4 ", "1,2,3", "1,2,3,4,5", "1,,3,4",
    "1;2;3;4", "1,2,3,x", ",,,", "left", " Left ", "RIGHT", "center", "Centre", "CENTER", "top",
    "Bottom", "bottom\n", "middle", "left right", "eject", " EJECT", "Retract", "retract.", "cut",
)


def parser_words(program):
    result = subprocess.run([program], input=json.dumps(SAMPLES), capture_output=True, text=True,
                            check=True)
    return json.loads(result.stdout)
