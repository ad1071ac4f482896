#!/usr/bin/env python3
"""Spreadsheet-XML templates."""
import re

from command_line import SAMPLE, CommandLineCase, main


class FillTest(CommandLineCase):
    TEMPLATE = ('<Workbook><?zrx_xls #worksheet_begin# ?><Worksheet ss:Name="#worksheet_name#(a)"><Table ss:X="1">'
                '<Cell><Data><?zrx_xls #GD-C1-c[***]-R1-r[***]-# ?></Data></Cell>'
                '<?zrx_xls #worksheet_section_begin(2)# ?><s><?zrx_xls #GD-C1-c[***]-R1-r[***]-# ?></s>'
                '<?zrx_xls #worksheet_section_end(2)# ?></Table></Worksheet><?zrx_xls #worksheet_end# ?></Workbook>')

    def fill(self, steps, status=0):
        (self.folder / "vzor.xml").write_text(self.TEMPLATE)
        return self.run_program("fill", "vzor.xml", "-", "-o", "sesit.xml", stdin=steps, status=status)

    def test_fills_a_template(self):
        stdout, stderr = self.fill('[["AddWorksheet", "Žluť", "A", [["SetDataIntoTaggedCell", "ř", 1, 1],'
                                   '["AddWorksheetSection", 2, [["SetDataIntoTaggedCell", "x", 1, 1, 5, 5]]],'
                                   '["GetAttributeValueFromTable", "ss:x"], ["SetColumnWidth", 1, 40, true]]],'
                                   ' ["AddWorksheet", "b"]]')
        self.assertEqual((stdout, stderr), (f"1\n{self.folder}/sesit.xml\n", ""))
        table = '<Table ss:X="1">\n   <Column ss:AutoFitWidth="1" ss:Width="40"/>'
        self.assertEqual((self.folder / "sesit.xml").read_text(),
                         f'<Workbook>\n<Worksheet ss:Name="Žluť">{table}<Cell><Data>ř</Data></Cell><s>x</s></Table></Worksheet>\n'
                         '<Worksheet ss:Name="b"><Table ss:X="1"><Cell><Data></Data></Cell></Table></Worksheet>\n</Workbook>')

    def test_fills_the_documented_example(self):
        page = (SAMPLE.parent.parent / "docs/formats/spreadsheet_xml.md").read_text()
        blocks = ["\r\n".join(line[4:] for line in block.splitlines()) + "\r\n"
                  for block in re.findall(r"(?m)(?:^    .*\n)+", page)]
        template, result = [block for block in blocks if block.startswith("<?xml version")]
        [steps] = [block for block in blocks if block.startswith("[[")]
        (self.folder / "vzor.xml").write_bytes(template.encode())
        self.run_program("fill", "vzor.xml", "-", "-o", "cenik.xml", stdin=steps)
        self.assertEqual((self.folder / "cenik.xml").read_bytes().decode(), result)

    def test_steps_that_fail_are_named(self):
        (self.folder / "sesit.xml").unlink(missing_ok=True)
        inner = '[["AddWorksheet", "a"], ["AddWorksheet", "b", "", [["RemoveDataFromTaggedCell", 1, 1], %s]]]'
        for steps, status, message in [
            (inner % '["SetData"]', 2, 'step 2.2: unknown operation "SetData"'),
            (inner % '["SetRowsOfTaggedGrid", 1]', 2, "step 2.2: SetRowsOfTaggedGrid takes iRowSign, iNumberOfRows"),
            (inner % '["SetRowsOfTaggedGrid", 1, 2, 3]', 2, "step 2.2: SetRowsOfTaggedGrid takes"),
            (inner % '["SetRowsOfTaggedGrid", 1, 32768]', 2, "step 2.2: iNumberOfRows must be a whole number"),
            (inner % '["SetRowsOfTaggedGrid", 1, 2.5]', 2, "step 2.2: iNumberOfRows must be a whole number"),
            (inner % '["SetDataIntoTaggedCell", 5, 1, 1]', 2, "step 2.2: data must be a text"),
            (inner % '["AddWorksheetSection", 2, [["SetColumnWidth", 1, 1]]]', 2, "step 2.2.1: SetColumnWidth is no operation"),
            (inner % '["AddWorksheetSection", 2, [], 1]', 2, "step 2.2: nothing may follow"),
            (inner % '["RemoveDataFromTaggedCell", 1, 1, [[]]]', 2, "step 2.2: RemoveDataFromTaggedCell has no steps"),
            (inner % '{"a": 1}', 2, "step 2.2: steps hold no objects"),
            (inner % '"AddWorksheet"', 2, "step 2.2: a step is an array"),
            (inner % '[]', 2, "step 2.2: a step begins with the name"),
            (inner % '["SetColumnWidth", 1 40]', 2, "step 2.2: parse error at line 1"),
            ("", 2, "steps: parse error"),
            ("5", 2, "steps: the steps must be an array"),
            ("[" * 100_000, 2, "step 1: a step begins with the name"),
            (inner % '["SetColumnWidth", 0, 40]', 1, "step 2.2: -9999 - Hodnotu indexu sloupce"),
            (inner % '["AddWorksheetSection", 7]', 1, "step 2.2: 5 - the worksheet has no section 7"),
            ('[["AddWorksheet", "a", "neni"]]', 1, "step 1: 5 - the worksheet was not added"),
            ("[]", 1, "Není definován ani jeden list!"),
        ]:
            stdout, stderr = self.fill(steps, status=status)
            self.assertEqual(stdout, "")
            self.assertIn(message, stderr, steps[:200])
            self.assertFalse((self.folder / "sesit.xml").exists(), steps[:200])
        self.assertIn("otevírání souboru šablony", self.run_program("fill", "neni.xml", "-", "-o", "s.xml", stdin="[]", status=1)[1])
        self.run_program("fill", "vzor.xml", "neni.json", "-o", "s.xml", status=1)


if __name__ == "__main__":
    main()
