{\rtf1\ansi\ansicpg1252\deff0
{\fonttbl{\f0\fnil\fprq2\fcharset0 Tengwar Quillon;}}
\viewkind4\uc1\pard\plain\f0\fs40
}
