"""Values that fill a document, and parameter files."""

from __future__ import annotations

from support import LABEL, HostTest, item, main
from velnorxmltoimg import Layout, VelnorError


def parameters_of(pairs: list[tuple[str, str]]) -> str:
    entries = []
    for name, value in pairs:
        owner, element = name.split(".")
        entries.append(f'<VelnorParam id="{owner}"><{element}>{value}</{element}></VelnorParam>')
    return f"<VelnorParams>{''.join(entries)}</VelnorParams>"


class ValuesTest(HostTest):
    def test_a_tag_replaces_its_placeholder_and_its_first_value_counts(self) -> None:
        layout = self.open_layout(item("text", "label", "<text>to %town%!</text>"))
        layout.set_tag("town", "Sampleton &amp; Café")
        layout.set_tag("town", "Elsewhere")
        self.assertEqual(layout.get_object("label.text"), "to Sampleton & Café!")

    def test_the_last_value_of_an_object_counts_and_is_plain_text(self) -> None:
        layout = self.label()
        self.assertEqual(layout.get_object("label.text"), "old")
        layout.set_object("label.text", "new")
        layout.set_object("label.text", "<Žluťoučký & €😀>")
        self.assertEqual(layout.get_object("label.text"), "<Žluťoučký & €😀>")

    def test_a_property_that_is_missing_is_made(self) -> None:
        layout = self.label()
        self.assertIsNone(layout.get_object("label.note"))
        layout.set_object("label.note", "")
        self.assertEqual(layout.get_object("label.note"), "")

    def test_an_object_name_without_a_point_is_that_of_a_tag(self) -> None:
        layout = self.open_layout(item("text", "label", "<text>%town%</text>"))
        layout.set_object("town", "Sampleton")
        self.assertEqual(layout.get_object("label.text"), "Sampleton")

    def test_a_link_leads_to_its_element(self) -> None:
        layout = self.label()
        layout.set_link("label.caption", "new")
        self.assertEqual(layout.get_link("label.caption"), "new")
        self.assertEqual(layout.get_object("label.text"), "new")

    def test_a_link_that_the_document_does_not_have_is_an_error(self) -> None:
        layout = self.label()
        with self.assertRaisesRegex(VelnorError, r"^label\.other: page\.xml has no such link$"):
            layout.set_link("label.other", "new")
        self.assertIsNone(layout.get_link("label.other"))
        self.assertIsNone(layout.get_object("label.other"))

    def test_a_name_with_two_points_is_an_error(self) -> None:
        layout = self.label()
        with self.assertRaisesRegex(VelnorError, r"^label\.text\.x: more than one point$"):
            layout.set_object("label.text.x", "new")
        self.assertIsNone(layout.get_object("label.text.x"))

    def test_names_may_hold_latin_1_and_nothing_else(self) -> None:
        layout = self.open_layout(item("text", "café", "<text>%é%</text>"))
        layout.set_tag("é", "tag")
        self.assertEqual(layout.get_object("café.text"), "tag")
        layout.set_object("café.text", "object")
        self.assertEqual(layout.get_object("café.text"), "object")
        with self.assertRaises(ValueError):
            layout.set_tag("Ž", "value")

    def test_a_zero_character_is_refused_wherever_it_stands(self) -> None:
        layout = self.label()
        for call in (
            lambda: layout.set_tag("a\0b", "value"),
            lambda: layout.set_tag("name", "a\0b"),
            lambda: layout.get_object("label.te\0xt"),
            lambda: layout.render("a\0b.png"),
            lambda: Layout(self.library, "a\0b.xml"),
        ):
            with self.assertRaises(ValueError):
                call()

    def test_values_of_any_length_are_read_whole(self) -> None:
        layout = self.label()
        for letter in "a", "é", "€", "😀":
            for length in 1021, 1022, 1023, 1024, 1025, 2047, 2048, 100_000:
                layout.clear()
                layout.set_object("label.text", letter * length)
                self.assertEqual(layout.get_object("label.text"), letter * length)

    def test_clear_forgets_all_values(self) -> None:
        layout = self.open_layout(item("text", "label", "<text>%town%</text>"))
        layout.set_tag("town", "Sampleton")
        layout.set_object("page.note", "x")
        layout.clear()
        self.assertEqual(layout.get_object("label.text"), "%town%")
        self.assertIsNone(layout.get_object("page.note"))


class ParametersTest(HostTest):
    def test_the_pairs_are_listed_in_their_order_and_nothing_is_set(self) -> None:
        layout = self.label()
        pairs = [("label.caption", "one"), ("other.größe", "€😀"), ("label.caption", "")]
        path = self.write("values.xml", parameters_of(pairs))
        self.assertEqual(layout.list_parameters(path), pairs)
        self.assertEqual(layout.get_object("label.text"), "old")

    def test_lists_of_any_length_are_read_whole(self) -> None:
        layout = self.label()
        lengths = [339, 340, 341, 510, 511, 512, 1021, 1022, 1023, 1024, 1025, 30_000]
        values = [letter * length for letter in ("a", "€", "😀") for length in lengths]
        values += ["a" * length + "😀" for length in lengths]
        for value in values:
            pairs = [("label.caption", value)]
            path = self.write("values.xml", parameters_of(pairs))
            self.assertEqual(layout.list_parameters(path), pairs)
        pairs = [(f"label.x{number}", str(number)) for number in range(2000)]
        self.assertEqual(
            layout.list_parameters(self.write("values.xml", parameters_of(pairs))), pairs
        )

    def test_a_file_without_a_pair_gives_an_empty_list(self) -> None:
        path = self.write("values.xml", "<VelnorParams><VelnorParam id='label'/></VelnorParams>")
        self.assertEqual(self.label().list_parameters(path), [])

    def test_values_are_applied_by_link_or_else_by_property(self) -> None:
        layout = self.label()
        pairs = [("label.caption", "new"), ("label.fontsize", "12")]
        layout.apply_parameters(self.write("values.xml", parameters_of(pairs)))
        self.assertEqual(layout.get_object("label.text"), "new")
        self.assertEqual(layout.get_object("label.fontsize"), "12")

    def test_what_is_no_parameter_file_is_an_error(self) -> None:
        layout = self.label()
        self.write("other.xml", "<VelnorParam/>")
        for path in "missing.xml", "other.xml", "page.xml":
            for call in layout.apply_parameters, layout.list_parameters:
                with self.assertRaisesRegex(VelnorError, f"^{path}: no parameter file$"):
                    call(path)


if __name__ == "__main__":
    main()
