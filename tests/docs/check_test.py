#!/usr/bin/env python3
"""docs/check finds what is wrong in a document, and says where. Run with documents made for it and
programs that only look like zervan and tpn."""

import importlib.machinery
import importlib.util
import pathlib
import subprocess
import sys
import tempfile
import unittest

CHECK = pathlib.Path(__file__).resolve().parents[2] / "docs" / "check"

ZERVAN = """#!/bin/sh
[ "$1" != wrong ] || exit 3
echo "read $1"
echo 123456 bytes memory
echo 0.012
"""


class DocsCheck(unittest.TestCase):
    def setUp(self):
        self.place = tempfile.TemporaryDirectory()
        self.addCleanup(self.place.cleanup)
        self.folder = pathlib.Path(self.place.name)
        self.program("zervan", ZERVAN)

    def program(self, name, text):
        path = self.folder / name
        path.write_text(text, encoding="utf-8")
        path.chmod(0o755)

    def check(self, text):
        """The exit status and the output for a document."""
        document = self.folder / "document.md"
        document.write_text(text, encoding="utf-8")
        done = subprocess.run([CHECK, self.folder / "zervan", document], text=True, check=False,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        return done.returncode, done.stdout

    def assert_passes(self, text, count=1):
        self.assertEqual(self.check(text), (0, f"{count} passed, 0 failed\n"))

    def assert_fails(self, text, *told):
        status, output = self.check(text)
        self.assertEqual(status, 1, output)
        for part in told:
            self.assertIn(part, output)
        return output

    def test_what_is_shown_passes(self):
        self.assert_passes("Hello.\n\n```\n$ echo one; echo two >&2\none\ntwo\n$ true\n```\n", 2)

    def test_another_output_is_told_with_its_place(self):
        told = self.assert_fails("# Title\n\n```\n$ true\n$ echo one\ntwo\n```\n",
                                 "document.md:5: $ echo one\n", "\n-two\n+one\n")
        self.assertTrue(told.endswith("\n1 passed, 1 failed\n"), told)

    def test_output_that_is_not_shown_fails(self):
        self.assert_fails("```\n$ echo one\n```\n", "+one\n")

    def test_output_that_does_not_come_fails(self):
        self.assert_fails("```\n$ true\none\n```\n", "-one\n")

    def test_lines_in_another_order_fail(self):
        self.assert_fails("```\n$ printf 'a\\nb\\n'\nb\na\n```\n", "1 failed")

    def test_a_failure_is_told(self):
        self.assert_fails("```\n$ false\n```\n", "+exit status 1\n")

    def test_a_failure_passes_where_its_status_is_shown(self):
        self.assert_passes("```\n$ exit 7\n$ echo $?\n7\n```\n", 2)

    def test_another_status_than_shown_fails(self):
        self.assert_fails("```\n$ exit 7\n$ echo $?\n1\n```\n", "-1\n+7\n")

    def test_answers_of_solvers_are_no_failures(self):
        self.assert_passes("".join(f"```\n$ exit {status}\n```\n" for status in (10, 20, 30)), 3)

    def test_a_folder_counts_for_the_commands_after_it(self):
        self.assert_passes("```\n$ mkdir -p a/b\n$ cd a/b\n$ touch here\n$ cd ..\n$ ls b\nhere\n```\n", 5)

    def test_a_folder_that_is_not_there_fails(self):
        self.assert_fails("```\n$ cd nowhere\n```\n", "there is no folder nowhere")

    def test_a_variable_does_not_count_for_the_commands_after_it(self):
        self.assert_passes("```\n$ x=1\n$ echo \"$x.\"\n.\n```\n", 2)

    def test_files_come_from_blocks_and_sentences(self):
        self.assert_passes("First `net.tpn`, not `other.tpn`:\n\n```\none\n\ntwo\n```\n\n"
                           "`phi.tpn` holds `p1`, and\n`psi.tpn` holding `p2`.\n\n"
                           "```\n$ cat net.tpn phi.tpn psi.tpn; ls *.tpn\none\n\ntwo\np1\np2\n"
                           "net.tpn\nphi.tpn\npsi.tpn\n```\n")

    def test_a_block_without_a_name_before_it_is_only_read(self):
        self.assert_passes("Of `net.tpn`:\n\nand this:\n\n```\none\n```\n\n"
                           "```\n$ ls *.tpn\nls: cannot access '*.tpn': No such file or directory\n"
                           "$ echo $?\n2\n```\n", 2)

    def test_examples_and_documents_are_there(self):
        self.assert_passes("```\n$ ls -d docs/code.md examples/fischer\ndocs/code.md\n"
                           "examples/fischer\n```\n")

    def test_zervan_is_compared_but_for_what_it_costs(self):
        self.assert_passes("```\n$ zervan net\nread net\n999 bytes memory\n1e-3\n```\n")
        self.assert_fails("```\n$ zervan net\nread other\n999 bytes memory\n1e-3\n```\n",
                          "-read other\n+read net\n")

    def test_zervan_may_be_shown_without_output_and_not_fail(self):
        self.assert_passes("```\n$ zervan net\n```\n")
        self.assert_fails("```\n$ zervan wrong\n```\n", "+exit status 3\n")

    def test_a_picture_has_to_be_the_one_that_is_kept(self):
        self.assert_passes("```\n$ cp docs/run.svg run.svg\n```\n", 2)
        self.assert_fails("```\n$ echo another >run.svg\n```\n",
                          "docs/run.svg is not the picture that the commands draw")

    def test_a_command_that_is_not_run_is_told(self):
        self.assert_fails("    $ echo one\n\n```\n$ true\n```\n", "1 commands run, of 2 there")
        self.assert_fails("```\n$ true\n```\n\n```\n$ true\n", "1 commands run, of 2 there")

    def test_a_document_without_commands_is_told(self):
        self.assert_fails("Nothing.\n", "no document shows a command")

    def test_a_command_that_does_not_end_is_ended_with_all_that_it_started(self):
        sys.dont_write_bytecode = True  # beside the program
        loader = importlib.machinery.SourceFileLoader("check", str(CHECK))
        check = importlib.util.module_from_spec(importlib.util.spec_from_loader("check", loader))
        loader.exec_module(check)
        check.SECONDS = 0.5
        shell = check.Shell("/bin", self.folder)
        self.assertEqual(shell.run("echo one; (sleep 60; echo two) & sleep 60"),
                         "one\nno end within 0.5 s\n")
        self.assertNotEqual(shell.status, 0)

    def test_without_a_program_it_says_how_it_is_used(self):
        done = subprocess.run([CHECK], text=True, capture_output=True, check=False)
        self.assertEqual(done.returncode, 2)
        self.assertIn("usage: docs/check ZERVAN", done.stderr)


if __name__ == "__main__":
    unittest.main()
