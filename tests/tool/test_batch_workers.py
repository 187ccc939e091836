"""batch: its processes, and what happens when one of them ends."""

import os
import signal
import time
import unittest

from support.batch import BatchTest, csv, is_running, kill, stop, wait_for, workers_of

NAMES = csv(["name"], *[[f"guest {number}"] for number in range(1, 9)])


class Workers(BatchTest):
    def start_large(self, *more, jobs=1):
        """A batch that takes some seconds, after its first picture."""
        self.write("d.csv", NAMES)
        process = self.start("large.xml", "--data", "d.csv", "-o", "out/{number}.png", "--jobs",
                             jobs, *more)
        wait_for(lambda: list(self.folder.glob("out/*.png")))
        return process

    def errors(self, process):
        return process.communicate(timeout=60)[1].decode().splitlines()

    def assert_only_whole_pictures(self):
        self.assertEqual(self.hidden(), [])
        self.assert_whole(self.pictures())

    def test_any_number_of_jobs_gives_the_same_pictures(self):
        rows = csv(["name"], *[[f"guest {number}"] for number in range(20)])
        for jobs in (1, 2, 5):
            self.batch("text.xml", rows, "--jobs", jobs, output=f"out{jobs}/{{number}}.png")
        self.assertEqual(len(self.pictures("out1")), 20)
        self.assertEqual(self.pictures("out1"), self.pictures("out2"))
        self.assertEqual(self.pictures("out1"), self.pictures("out5"))

    def test_there_are_no_more_workers_than_jobs(self):
        process = self.start_large(jobs=3)
        most = 0
        while process.poll() is None:
            try:
                workers = workers_of(process)
            except FileNotFoundError:
                break
            most = max(most, len(workers))
            time.sleep(0.01)
        self.assertEqual(most, 3)
        self.assertEqual(self.errors(process), [])

    def start_fed(self, *more):
        """A batch that gets its rows from this test, and the file that takes them."""
        os.mkfifo(self.folder / "rows.csv")
        process = self.start("a.xml", "--data", "rows.csv", "-o", "out/{number}.png", *more)
        rows = open(self.folder / "rows.csv", "w", encoding="utf-8", buffering=1)
        self.addCleanup(rows.close)
        rows.write("w\n")
        return process, rows

    def wait_for_picture(self, number):
        wait_for((self.folder / "out" / f"{number}.png").exists)

    def give_to_stopped_worker(self, process, rows):
        """Row 2 lies with a worker that does nothing; the rows around it are drawn."""
        rows.write("5\n")
        self.wait_for_picture(1)
        worker, = workers_of(process)
        stop(worker)
        rows.write("6\n7\n")
        self.wait_for_picture(3)
        return worker

    def test_a_worker_that_is_killed_fails_its_row_alone(self):
        process, rows = self.start_fed("--jobs", 2)
        kill(self.give_to_stopped_worker(process, rows))
        rows.write("8\n9\n")
        rows.close()
        self.assertEqual(self.errors(process), [
            "velnorxmltoimg: row 2: 'rows.csv', line 3: its worker was ended by signal 9 (Killed)"])
        self.assertEqual(process.returncode, 1)
        self.assertEqual(sorted(self.pictures()), ["1.png", "3.png", "4.png", "5.png"])
        self.assert_only_whole_pictures()

    def test_a_row_that_takes_too_long_is_given_up_alone(self):
        process, rows = self.start_fed("--jobs", 2, "--timeout", 3)
        self.give_to_stopped_worker(process, rows)
        rows.write("8\n9\n")
        rows.close()
        self.assertEqual(self.errors(process), [
            "velnorxmltoimg: row 2: 'rows.csv', line 3: no picture within 3 s"])
        self.assertEqual(process.returncode, 1)
        self.assertEqual(sorted(self.pictures()), ["1.png", "3.png", "4.png", "5.png"])
        self.assert_only_whole_pictures()

    def test_a_worker_that_is_killed_between_two_rows_is_replaced(self):
        process, rows = self.start_fed("--jobs", 1)
        for number in (1, 2, 3):
            rows.write("5\n")
            self.wait_for_picture(number)
            worker, = workers_of(process)
            kill(worker)
            wait_for(lambda gone=worker: not is_running(gone))
        rows.close()
        self.assertEqual(self.errors(process), [])

    def test_signals_leave_whole_pictures_and_nothing_else(self):
        for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            process = self.start_large("--summary", "s.json", jobs=2)
            workers = workers_of(process)
            process.send_signal(number)
            self.assertEqual(self.errors(process), [])
            self.assertEqual(process.returncode, -number)
            self.assertFalse(any(map(is_running, workers)))
            self.assert_only_whole_pictures()
            self.assertEqual([name for name in self.files() if "s.json" in name], [])

    def test_a_signal_to_all_processes_is_no_failure_of_rows(self):
        process = self.start_large(jobs=2)
        for pid in [*workers_of(process), process.pid]:
            os.kill(pid, signal.SIGTERM)
        self.assertEqual(self.errors(process), [])
        self.assertEqual(process.returncode, -signal.SIGTERM)
        self.assert_only_whole_pictures()

    def test_workers_end_with_a_batch_that_is_killed(self):
        process = self.start_large(jobs=2)
        workers = workers_of(process)
        process.kill()
        process.wait()
        wait_for(lambda: not any(map(is_running, workers)))
        self.assert_only_whole_pictures()

    def test_what_was_killed_can_be_resumed(self):
        process = self.start_large()
        process.kill()
        process.wait()
        self.assertLess(len(self.pictures()), 8)
        self.succeed("batch", "large.xml", "--data", "d.csv", "-o", "out/{number}.png", "--resume")
        self.assertEqual(len([name for name in self.pictures() if name[0] != "."]), 8)

    def test_nothing_stays_among_the_temporary_files(self):
        temporary = self.folder / "tmp"
        temporary.mkdir()
        rows = csv(["w", "n"], [5, "a"], [6, "b"])
        for more in ((), ("--dry-run",)):
            self.batch("a.xml", rows, *more, output="out/{n}.png",
                       environment={"TMPDIR": str(temporary)})
            self.assertEqual(list(temporary.iterdir()), [])

    def test_rows_are_drawn_as_they_come(self):
        process, rows = self.start_fed()
        for number in (1, 2, 3):
            rows.write("5\n")
            self.wait_for_picture(number)
        rows.close()
        self.assertEqual(self.errors(process), [])

    def test_a_batch_that_waits_for_rows_can_be_ended(self):
        os.mkfifo(self.folder / "rows.csv")
        process = self.start("a.xml", "--data", "rows.csv", "-o", "out/{number}.png")
        wait_for((self.folder / "out").exists)
        process.send_signal(signal.SIGTERM)
        process.communicate(timeout=20)
        self.assertEqual(process.returncode, -signal.SIGTERM)
        self.assertEqual(self.hidden(), [])


if __name__ == "__main__":
    unittest.main()
