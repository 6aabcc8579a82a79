# Sourced by shoot: what the user does, from picture to picture. Controls go by the numbers that their dialogs give them.

title="ZEMA AC QLD Service - configuration"
ok=1 cancel=2 no=7

profiles=1001 rules=1030
archive=0 bank=1 reports=2 # rows of the profiles

# rule ROW: opens the editor of a rule.
rule() {
    do_ doubleclick $rules "$1"
    do_ opened Edit rule
}

# rule_picture ROW NAME
rule_picture() {
    rule "$1"
    picture "$2"
    do_ leave $cancel
}

# The main window.
do_ opened "$title"
do_ click $profiles $bank
do_ details $rules 5 8
do_ opened Extra
picture details
do_ leave $cancel
picture main
do_ type 1079 sign
picture search
do_ type 1079
do_ click $rules 2
do_ press 1025
do_ opened "$title"
picture question
do_ leave $no

# An encrypting rule, its masks and its recipients.
rule 0
picture rule-encrypt
do_ click 1001 0
do_ press 1125
do_ opened Mask
picture mask
do_ leave $cancel
do_ press 1050
do_ opened "$title"
picture wait
do_ gone
do_ opened Add recipients
do_ press 1215
for row in 0 2 4; do do_ check 1214 $row; done
do_ press 1027
picture picker
do_ press 1217
do_ opened Filter
do_ choose 1202 0
do_ type 1204 'Ivan*'
picture filter
do_ leave $cancel
do_ leave $cancel
do_ leave $cancel

# A verifying rule and its signer lists.
rule 3
picture rule-verify
do_ press 1050
do_ opened Signer lists
do_ click 1230 0
picture signer-lists
do_ doubleclick 1230 0
do_ opened Signer list
picture signer-list
do_ leave $cancel
do_ press 1232
do_ opened Edit list
do_ press 1215
picture picker-list
do_ leave $cancel
do_ leave $cancel
do_ leave $cancel

# The other shapes of the rule editor.
rule_picture 2 rule-sign
rule_picture 5 rule-resign
do_ click $profiles $archive
rule_picture 0 rule-archive
rule_picture 3 rule-pack
rule_picture 5 rule-delete
rule_picture 10 rule-move
do_ click $profiles $reports
rule_picture 6 rule-execute

# What is refused.
do_ press 1023
do_ opened Add rule
picture rule-new
do_ press $ok
do_ opened Error
picture error-box
do_ leave $ok
do_ type 1045 'C:\Exchange\Nowhere'
do_ type 1046 'C:\Exchange'
do_ type 1047 'C:\Exchange'
do_ press $ok
do_ opened "$title"
picture error-report
do_ leave $ok
do_ leave $cancel

# Profiles.
do_ click $profiles $bank
do_ press 1032
do_ opened Edit profile
picture profile
do_ press 1099
do_ opened "$title"
picture delete-store-profile
do_ leave $no
do_ press 1098
do_ opened Add CS profile
picture store-profile
do_ leave $cancel
do_ leave $cancel

# Settings.
do_ press 1022
do_ opened Log path
picture log
do_ leave $cancel
do_ menu 32822
do_ opened Configurations
picture extensions
do_ press 261
do_ opened Add additional extension:
picture extension
do_ leave $cancel
do_ leave $cancel

# About, and out.
do_ system 16
do_ opened About programm...
picture about
do_ leave $ok
do_ press $cancel
