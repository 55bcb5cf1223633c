{\rtf1\ansi\ansicpg1252\deff0
{\fonttbl{\f0\froman\fprq2\fcharset0{\*\falt Times New Roman}Liberation Serif;}}
\viewkind4\uc1\pard\plain\f0\fs24
}
