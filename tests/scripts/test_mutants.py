"""What the mutation run changes, and what it leaves alone."""

import os
import sys
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(__file__), '../../scripts/mutation'))
from mutants import mutants_of  # noqa: E402  (found only now)

IN_FUNCTION = 'void F(int a, int b) {{\n  {};\n}}\n'

# Statement, operator, what it becomes.
CHANGES = (
    ('r = a < b', 'relational', {'r = a <= b', 'r = a >= b'}),
    ('r = a == b', 'relational', {'r = a != b'}),
    ('r = a + b', 'arithmetic', {'r = a - b'}),
    ('r = a >> 8', 'arithmetic', {'r = a << 8'}),
    ('++r', 'arithmetic', {'--r'}),
    ('r = a && b', 'logical', {'r = a || b'}),
    ('r = 255', 'constant', {'r = 256', 'r = 254'}),
    ('r = 0', 'constant', {'r = 1'}),
    ('r = true', 'constant', {'r = false'}),
    ("r = '}'", 'text', {"r = '~'"}),
    ('r = "Name"', 'text', {'r = ""', 'r = "Name~"'}),
    ('r = ""', 'text', {'r = "x"'}),
    ('r = !a', 'negation', {'r = a'}),
    ('if (a) G()', 'negation', {'if (!(a)) G()'}),
    ('r = a > 0 ? b : c', 'negation', {'r = a > 0 == 0 ? b : c'}),
    ('Save()', 'call removed', {''}),
    ('m_list.front()->Close(a)', 'call removed', {''}),
    ('if (a) Save()', 'call removed', {'if (a) '}),
    ('r = a', 'call removed', {''}),
    ('const Lock held(m_mutex)', 'call removed', {''}),
    ('Save(a, b)', 'argument swapped', {'Save(b, a)'}),
    ('Save(a, F(b, c))', 'argument swapped', {'Save(F(b, c), a)', 'Save(a, F(c, b))'}),
)

# Statement and the operator that must leave it alone.
LEFT_ALONE = (
    ('std::vector<int> r', 'relational'),
    ('int* r = &a', 'arithmetic'),
    ('return a', 'call removed'),
    ('Text text(a)', 'call removed'),
    ('Save(a, a)', 'argument swapped'),
    ('static_assert(sizeof(a) == 12, "size")', 'constant'),
    ('Save()  // after 12 and "text"', 'constant'),
)


def made(source, operator):
    return {mutant.apply(source) for mutant in mutants_of('x.cpp', source)
            if mutant.operator == operator}


class Mutants(unittest.TestCase):
    def test_change_one_thing(self):
        for statement, operator, expected in CHANGES:
            with self.subTest(statement=statement, operator=operator):
                self.assertEqual({IN_FUNCTION.format(change) for change in expected},
                                 made(IN_FUNCTION.format(statement), operator))

    def test_leave_alone_what_is_no_such_thing(self):
        for statement, operator in LEFT_ALONE:
            with self.subTest(statement=statement, operator=operator):
                self.assertEqual(set(), made(IN_FUNCTION.format(statement), operator))

    def test_keep_an_object_that_is_used_later(self):
        self.assertEqual({IN_FUNCTION.format('const Lock held(m_mutex);\n  ')},
                         made(IN_FUNCTION.format('const Lock held(m_mutex);\n  Use(held)'),
                              'call removed'))

    def test_return_early_from_functions_alone(self):
        source = ('namespace a {\nclass C {\n public:\n  C() {}\n  explicit C(int a) { F(); }\n'
                  '  int Size() const { return m_size; }\n};\n'
                  'bool C::Has(int b) {\n  while (b) {\n    --b;\n  }\n}\n}\n')
        self.assertEqual({source.replace('{ F()', '{ return; F()'),
                          source.replace('{ return m', '{ return {}; return m'),
                          source.replace('(int b) {', '(int b) { return {};')},
                         made(source, 'early return'))

    def test_are_described_without_their_place(self):
        mutant, = (mutant for mutant in mutants_of('x.cpp', IN_FUNCTION.format('r = 0'))
                   if mutant.operator == 'constant')
        self.assertEqual('r = 0; -> r = 1;', mutant.describe(IN_FUNCTION.format('r = 0')))


if __name__ == '__main__':
    unittest.main()
