#compdef quorvane
_arguments : \
  '(- *)--help[print what it understands]' \
  '(- *)--version[print the version]' \
  '(- *)--self-check[print what this desktop answers]' \
  '(- *)--preferences[open the window]' \
  '(- *)--at-login[leave when it runs already]' \
  '(- *)--new-instance[replace the one that runs]'
