"""docs/scaling.md: what it shows is what happens."""

import re
import shutil
import textwrap
import unittest

from support import SOURCE
from support.batch import BatchTest
from support.guides import Follower, blocks

GUIDE = (SOURCE / "docs" / "scaling.md").read_text(encoding="utf-8")
TAGS = ["G-0417.png", "G-0418.png", "G-0419.png", "G-0420.png"]


def without_time(text):
    return re.sub(r'"seconds":[0-9.]+', '"seconds":0', text)


class Guide(Follower, BatchTest):
    def setUp(self):
        super().setUp()
        self.write("guest.xml", blocks(GUIDE, "xml")[0])
        self.write("guests.csv", blocks(GUIDE, "csv")[0])
        self.install_tool()

    def mend(self):
        text = blocks(GUIDE, "csv")[0].replace("Max &", "Max &amp;")
        self.write("guests.csv", text)

    def test_the_commands_give_what_is_shown(self):
        shown = [block for block in blocks(GUIDE, "console") if "$ parallel" not in block]
        self.assertGreater(len(shown), 5)
        for block in shown:
            self.run_shown(block, likewise=without_time)

    @unittest.skipUnless(shutil.which("parallel"), "GNU parallel is not installed")
    def test_parallel_runs_the_shards(self):
        self.mend()
        block, = [block for block in blocks(GUIDE, "console") if "$ parallel" in block]
        self.run_shown(block, likewise=without_time)

    def test_the_script_for_slurm_runs_its_shard(self):
        self.mend()
        script, = blocks(GUIDE, "bash")
        first, last = map(int, re.search(r"--array=(\d+)-(\d+)", script).groups())
        self.assertIn(f"\nshards={last}\n", script)
        self.write("guests.sbatch", script)
        for index in range(first, last + 1):
            output = self.shell("bash guests.sbatch", SLURM_ARRAY_TASK_ID=str(index),
                                SLURM_CPUS_PER_TASK="2")
            self.assertEqual(output, ("", 0))
        self.assertEqual(sorted(self.pictures("slurm")), TAGS)

    def test_the_command_for_kubernetes_runs_its_shard(self):
        job, = blocks(GUIDE, "yaml")
        command = textwrap.dedent(re.search(r"- \|\n(.*?)\n +resources:", job, re.DOTALL).group(1))
        completions = int(re.search(r"completions: (\d+)", job).group(1))
        self.assertIn(f"/{completions}", command)
        outputs = [self.shell(command, JOB_COMPLETION_INDEX=str(index))
                   for index in range(completions)]
        self.assertEqual([code for _, code in outputs], [0] * completions)
        self.assertEqual(sum("row 3: " in output for output, _ in outputs), 1)
        self.assertEqual(sorted(self.pictures("pods")), [tag for tag in TAGS if "0419" not in tag])
        self.mend()
        self.shell(command, JOB_COMPLETION_INDEX="2")
        self.assertEqual(sorted(self.pictures("pods")), TAGS)

    def test_a_pod_fails_where_its_batch_cannot_begin(self):
        command = re.search(r"- \|\n(.*?)\n +resources:", blocks(GUIDE, "yaml")[0], re.DOTALL).group(1)
        (self.folder / "guest.xml").unlink()
        self.assertNotEqual(self.shell(command, JOB_COMPLETION_INDEX="0")[1], 0)


if __name__ == "__main__":
    unittest.main()
