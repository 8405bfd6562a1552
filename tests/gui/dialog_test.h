/* IDs of the test's dialog; the resource script and the test share them. */
#ifndef TESTS_GUI_DIALOG_TEST_H
#define TESTS_GUI_DIALOG_TEST_H

#define IDD_CONTROLS 1
#define LIST 10
#define EDIT 11
#define PUSH 12
#define TICK 13
#define RADIO_1 14
#define RADIO_2 15
#define LABEL 16
#define DIGITS 17
#define SPIN 18
#define SORTED 19
#define FRAME 20
#define PAGE 21

#endif
