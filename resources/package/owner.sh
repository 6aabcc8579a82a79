# Sourced by ./package: what the owner of the program says about it. The licence itself is license.txt beside this file.
owner_contact=""  # whom users ask, as the list of installed programs shows it: a person, a department, a telephone number
owner_address=""  # the address of the program's page; empty: the list of installed programs links to the installed guide
